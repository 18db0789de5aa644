#include "TnvFormClassRegistry.h"

#include <QHash>

namespace norvik {

namespace {

QHash<QString, TnvFormFactory>& Factories() {
    static QHash<QString, TnvFormFactory> factories;
    return factories;
}

} // namespace

void RegisterFormClass(const QString& AClassName, const TnvFormFactory& AFactory) {
    Factories().insert(AClassName, AFactory);
}

QWidget* CreateFormByClass(const QString& AClassName) {
    const TnvFormFactory factory = Factories().value(AClassName);
    return factory ? factory() : nullptr;
}

QString FormClassName(const QObject* AForm) {
    return AForm ? QString::fromLatin1(AForm->metaObject()->className()).section(u':', -1) : QString();
}

} // namespace norvik
