#pragma once

#include <QString>
#include <QWidget>
#include <functional>

namespace norvik {

// Forms that can be made by the name of their class, so that a page can be chosen by a name
// from a setting or a text.
using TnvFormFactory = std::function<QWidget*()>;

void RegisterFormClass(const QString& AClassName, const TnvFormFactory& AFactory);
// a new form of the class, without parent; nullptr for a class nobody registered
QWidget* CreateFormByClass(const QString& AClassName);
// the class name of a form as it is registered: without namespace
QString FormClassName(const QObject* AForm);

template <class TForm> void RegisterFormClass() {
    RegisterFormClass(QString::fromLatin1(TForm::staticMetaObject.className()).section(u':', -1),
                      [] { return new TForm(); });
}

} // namespace norvik
