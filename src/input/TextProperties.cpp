#include "TextProperties.h"

#include <QApplication>
#include <QMetaProperty>
#include <QWidget>

namespace norvik {

namespace {

// property names are compared without regard to letter case, as in the texts' source
int FindProperty(const QObject* AObject, const QString& AName) {
    const QMetaObject* meta = AObject->metaObject();
    for (int i = 0; i < meta->propertyCount(); ++i) {
        if (AName.compare(QLatin1String(meta->property(i).name()), Qt::CaseInsensitive) == 0)
            return i;
    }
    return -1;
}

bool HoldsObject(const QMetaProperty& AProperty) {
    return AProperty.metaType().flags().testFlag(QMetaType::PointerToQObject);
}

QObject* ObjectProperty(QObject* AObject, const QString& AName) {
    const int index = FindProperty(AObject, AName);
    if (index < 0 || !HoldsObject(AObject->metaObject()->property(index)))
        return nullptr;
    return AObject->metaObject()->property(index).read(AObject).value<QObject*>();
}

QObject* ComponentNamed(QObject* AForm, const QString& AName) {
    if (AName.isEmpty())
        return nullptr;
    return AForm->findChild<QObject*>(AName);
}

QObject* StepInto(QObject* AObject, const QString& AName) {
    // an empty name would match any child
    if (AName.isEmpty())
        return nullptr;
    if (QObject* child = AObject->findChild<QObject*>(AName, Qt::FindDirectChildrenOnly))
        return child;
    if (QObject* descendant = AObject->findChild<QObject*>(AName))
        return descendant;
    return ObjectProperty(AObject, AName);
}

bool SetParentControl(QObject* ATarget, QObject* AForm, const QString& AValue) {
    auto* control = qobject_cast<QWidget*>(ATarget);
    auto* parent = qobject_cast<QWidget*>(ComponentNamed(AForm, AValue));
    if (!control || !parent || parent == control || control->isAncestorOf(parent))
        return false;
    const bool shown = !control->isHidden();
    control->setParent(parent);
    control->setVisible(shown);
    return true;
}

bool WriteEnumeration(QObject* ATarget, const QMetaProperty& AProperty, const QString& AValue) {
    const QMetaEnum enumeration = AProperty.enumerator();
    bool ok = false;
    int value = 0;
    if (enumeration.isFlag()) {
        // a set is written "[a, b]" or "a|b"
        QString keys = AValue;
        keys.remove(u'[').remove(u']').remove(u' ').replace(u',', u'|');
        value = keys.isEmpty() ? 0 : enumeration.keysToValue(keys.toLatin1().constData(), &ok);
        ok = ok || keys.isEmpty();
    } else {
        value = enumeration.keyToValue(AValue.toLatin1().constData(), &ok);
    }
    return ok && AProperty.write(ATarget, value);
}

bool WriteObject(QObject* ATarget, QObject* AForm, const QMetaProperty& AProperty, const QString& AValue) {
    QObject* object = nullptr;
    if (AValue.compare(QLatin1String("nil"), Qt::CaseInsensitive) != 0) {
        object = ComponentNamed(AForm, AValue);
        const QMetaObject* wanted = AProperty.metaType().metaObject();
        if (!object || (wanted && !object->metaObject()->inherits(wanted)))
            return false;
    }
    // the property's own pointer type, which a plain QObject* would not convert to
    return AProperty.write(ATarget, QVariant(AProperty.metaType(), &object));
}

bool IsIntegerType(const QMetaType& AType) {
    switch (AType.id()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return true;
    default:
        return false;
    }
}

bool WriteValue(QObject* ATarget, QObject* AForm, const QMetaProperty& AProperty, const QString& AValue) {
    if (!AProperty.isWritable())
        return false;
    if (AProperty.isEnumType())
        return WriteEnumeration(ATarget, AProperty, AValue);
    if (HoldsObject(AProperty))
        return WriteObject(ATarget, AForm, AProperty, AValue);
    if (IsIntegerType(AProperty.metaType()) && AValue.startsWith(u'$')) {
        bool ok = false;
        const qlonglong number = AValue.mid(1).toLongLong(&ok, 16);
        return ok && AProperty.write(ATarget, number);
    }
    return AProperty.write(ATarget, AValue);
}

} // namespace

bool SetTextProperty(QObject* AForm, const QString& ALine) {
    const qsizetype equals = ALine.indexOf(u'=');
    if (!AForm || equals <= 0)
        return false;
    const QStringList path = ALine.left(equals).trimmed().split(u'.');
    const QString value = ALine.mid(equals + 1).trimmed();
    QObject* target = AForm;
    for (qsizetype i = 0; target && i + 1 < path.size(); ++i)
        target = StepInto(target, path[i].trimmed());
    if (!target)
        return false;
    const QString property = path.last().trimmed();
    if (property.compare(QLatin1String("Parent"), Qt::CaseInsensitive) == 0)
        return SetParentControl(target, AForm, value);
    const int index = FindProperty(target, property);
    return index >= 0 && WriteValue(target, AForm, target->metaObject()->property(index), value);
}

int SetTextProperties(QObject* AForm, const QString& AText) {
    int failed = 0;
    for (const QString& rawLine : AText.split(u'\n')) {
        const QString line = rawLine.trimmed();
        if (line.isEmpty())
            continue;
        if (!SetTextProperty(AForm, line)) {
            QApplication::beep();
            ++failed;
        }
    }
    return failed;
}

} // namespace norvik
