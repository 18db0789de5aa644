#include "TnvColorScheme.h"

#include "NamedMessages.h"
#include "TScaleForm.h"

#include <QApplication>

namespace norvik {

namespace {

std::shared_ptr<const TnvColorScheme>& InstalledScheme() {
    static std::shared_ptr<const TnvColorScheme> scheme;
    return scheme;
}

} // namespace

std::shared_ptr<const TnvColorScheme> CurrentColorScheme() {
    return InstalledScheme();
}

void SetCurrentColorScheme(std::shared_ptr<const TnvColorScheme> AScheme) {
    InstalledScheme() = std::move(AScheme);
    const QEvent::Type message = NamedMessageType(NamedMessages::EvaluateColorScheme);
    for (QWidget* widget : QApplication::allWidgets()) {
        if (qobject_cast<TScaleForm*>(widget))
            QCoreApplication::postEvent(widget, new QEvent(message));
    }
}

} // namespace norvik
