#include "TJSONObjectMapper.h"

#include "DateUtils.h"
#include "TDateTimeUtils.h"
#include "TJSONBase64.h"
#include "TJSONClassRegistry.h"
#include "TJSONVariantData.h"
#include "Variant.h"

#include <QDateTime>
#include <QMetaProperty>
#include <QObject>
#include <QStringList>
#include <QVariant>

namespace norvik {

namespace {

int findProperty(const QMetaObject* meta, const QString& name) {
    for (int i = 0; i < meta->propertyCount(); ++i) {
        if (QString::fromLatin1(meta->property(i).name()).compare(name, Qt::CaseInsensitive) == 0)
            return i;
    }
    return -1;
}

QVariant toQVariant(const Variant& value);

QVariant jsonToQVariant(const TJSONVariantData& data) {
    if (data.VKind == jvObject) {
        QVariantMap map;
        // the first of equal keys wins, as in a lookup
        for (int i = data.VCount - 1; i >= 0; --i)
            map.insert(data.NameAt(i), toQVariant(data.ValueAt(i)));
        return map;
    }
    if (data.VKind == jvArray) {
        QVariantList list;
        for (int i = 0; i < data.VCount; ++i)
            list.append(toQVariant(data.ValueAt(i)));
        return list;
    }
    return {};
}

QVariant toQVariant(const Variant& value) {
    switch (value.valueType()) {
    case VarType::Null:
        return QVariant::fromValue(nullptr);
    case VarType::Boolean:
        return value.toBool();
    case VarType::Integer:
        return value.toInt();
    case VarType::Int64:
        return value.toInt64();
    case VarType::Double:
    case VarType::Currency:
        return value.toDouble();
    case VarType::Date:
        return TDateTimeUtils::toQDateTime(value.toDate());
    case VarType::String:
    case VarType::UString:
        return value.toString();
    case VarType::Bytes:
        return value.toBytes();
    case VarType::JSON:
        return jsonToQVariant(*value.json());
    case VarType::Unassigned:
    case VarType::ByRef:
        return {};
    }
    return {};
}

// a date value as it stands, anything else read as ISO 8601 text
TDateTime dateOf(const Variant& value) {
    if (value.valueType() == VarType::Date)
        return value.toDate();
    return ISO8601TextToDate(value.toString(), false, 0);
}

QStringList linesOf(const Variant& value) {
    const TJSONVariantData* data = value.json();
    if (!data || data->VKind != jvArray)
        throw EVariantTypeCastError(value.valueType(), VarType::UString);
    QStringList lines;
    lines.reserve(data->VCount);
    for (int i = 0; i < data->VCount; ++i)
        lines.append(data->ValueAt(i).toString());
    return lines;
}

// the value in the form the property takes; an invalid QVariant for kinds not mapped
QVariant scalarFor(const QMetaProperty& property, const Variant& value) {
    if (property.isEnumType() || property.isFlagType())
        return value.toInt();
    switch (property.metaType().id()) {
    case QMetaType::Bool:
        return value.toBool();
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return QVariant::fromValue(value.toInt64());
    case QMetaType::Double:
    case QMetaType::Float:
        return value.toDouble();
    case QMetaType::QDateTime: {
        const TDateTime date = dateOf(value);
        return date == 0 ? QDateTime() : TDateTimeUtils::toQDateTime(date);
    }
    case QMetaType::QDate: {
        const TDateTime date = dateOf(value);
        return date == 0 ? QDate() : TDateTimeUtils::toDate(date);
    }
    case QMetaType::QString:
        return value.toString();
    case QMetaType::QByteArray:
        if (value.valueType() == VarType::Bytes)
            return value.toBytes();
        return value.isString() ? TJSONBase64::BytesFromText(value.toString()) : QByteArray();
    case QMetaType::QStringList:
        return linesOf(value);
    default:
        return {};
    }
}

bool fillObjectProperty(QObject* instance, const QMetaProperty& property, const Variant& value) {
    const TJSONVariantData* data = value.json();
    if (!data)
        return value.isEmpty(); // null leaves the object as it is
    if (QObject* target = property.read(instance).value<QObject*>())
        return TJSONObjectMapper::ToObject(*data, target);
    QObject* created = TJSONObjectMapper::ToNewObject(*data);
    if (!created)
        return false;
    created->setParent(instance);
    if (property.write(instance, QVariant::fromValue(created)))
        return true;
    delete created;
    return false;
}

bool writeProperty(QObject* instance, const QMetaProperty& property, const Variant& value) {
    const QMetaType type = property.metaType();
    if (type.flags() & QMetaType::PointerToQObject)
        return fillObjectProperty(instance, property, value);
    if (type.id() == QMetaType::QVariant)
        return property.write(instance, toQVariant(value));
    if (value.isEmpty())
        return property.write(instance, QVariant(type));
    const QVariant converted = scalarFor(property, value);
    // a kind of property that JSON has no value for is passed over
    return !converted.isValid() || property.write(instance, converted);
}

bool fillProperties(const TJSONVariantData& data, QObject* instance) {
    const QMetaObject* meta = instance->metaObject();
    for (int i = 0; i < data.VCount; ++i) {
        const int index = findProperty(meta, data.NameAt(i));
        if (index < 0)
            continue;
        try {
            if (!writeProperty(instance, meta->property(index), data.ValueAt(i)))
                return false;
        } catch (const EVariantError&) {
            return false;
        }
    }
    return true;
}

bool fillCollection(const TJSONVariantData& data, QObject* collection) {
    const QMetaObject* meta = collection->metaObject();
    const int info = meta->indexOfClassInfo(TJSONObjectMapper::ItemClassInfo);
    if (info < 0)
        return false;
    const QString itemClass = QString::fromLatin1(meta->classInfo(info).value());
    const QObjectList oldItems = collection->children();
    qDeleteAll(oldItems);
    for (int i = 0; i < data.VCount; ++i) {
        QObject* item = TJSONClassRegistry::Create(itemClass);
        if (!item)
            return false;
        item->setParent(collection);
        const TJSONVariantData* itemData = data.ValueAt(i).json();
        if (!itemData || !TJSONObjectMapper::ToObject(*itemData, item))
            return false;
    }
    return true;
}

} // namespace

bool TJSONObjectMapper::ToObject(const TJSONVariantData& data, QObject* instance) {
    if (!instance)
        return false;
    switch (data.VKind) {
    case jvObject:
        return fillProperties(data, instance);
    case jvArray:
        return fillCollection(data, instance);
    case jvUndefined:
        return false;
    }
    return false;
}

QObject* TJSONObjectMapper::ToNewObject(const TJSONVariantData& data) {
    const int index = data.NameIndex(QStringLiteral("ClassName"));
    if (index < 0 || !data.ValueAt(index).isString())
        return nullptr;
    QObject* instance = TJSONClassRegistry::Create(data.ValueAt(index).toString());
    if (instance && !ToObject(data, instance)) {
        delete instance;
        return nullptr;
    }
    return instance;
}

} // namespace norvik
