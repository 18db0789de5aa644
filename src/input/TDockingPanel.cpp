#include "TDockingPanel.h"

#include "TnvFormClassRegistry.h"

namespace norvik {

TDockingPanel::TDockingPanel(QWidget* AParent)
    : QFrame(AParent) {
    setFrameShape(QFrame::NoFrame);
}

TDockingPanel::~TDockingPanel() {
    // the docked form goes with the panel; nobody is left to hear of it
    disconnect(FWatch);
}

void TDockingPanel::DockForm(QWidget* AForm, bool AReleaseOld, bool AVisible) {
    if (AForm == FDockedForm)
        return;
    const bool hadFocus = hasFocus();
    if (QWidget* old = Undock(); old && AReleaseOld) {
        old->hide();
        old->setParent(nullptr);
    }
    if (!AForm)
        return;
    FDockedForm = AForm;
    // a new parent also takes the form's border: it becomes a plain child
    AForm->setParent(this);
    AForm->setVisible(AVisible);
    FitDockedForm();
    FWatch = connect(AForm, &QObject::destroyed, this, [this] {
        FDockedForm = nullptr;
        Fire(OnUnDocked);
    });
    if (hadFocus)
        AForm->setFocus();
    Fire(OnDocked);
}

bool TDockingPanel::SetDockFormByClass(const QString& AClassName) {
    if (AClassName.isEmpty() || (FDockedForm && FormClassName(FDockedForm) == AClassName))
        return false;
    QWidget* form = CreateFormByClass(AClassName);
    if (!form)
        return false;
    DockForm(form, true, true);
    return true;
}

void TDockingPanel::ReleaseDockForm() {
    QWidget* form = Undock();
    if (!form)
        return;
    form->hide();
    form->setParent(nullptr);
    // later, so that a form that asked for its own release from a handler is not pulled away
    // from under it
    form->deleteLater();
}

void TDockingPanel::resizeEvent(QResizeEvent* AEvent) {
    QFrame::resizeEvent(AEvent);
    FitDockedForm();
}

QWidget* TDockingPanel::Undock() {
    QWidget* old = FDockedForm;
    if (!old)
        return nullptr;
    disconnect(FWatch);
    FDockedForm = nullptr;
    Fire(OnUnDocked);
    return old;
}

void TDockingPanel::FitDockedForm() {
    if (FDockedForm)
        FDockedForm->setGeometry(contentsRect());
}

void TDockingPanel::Fire(const TnvNotifyEvent& AEvent) {
    if (AEvent)
        AEvent(this);
}

} // namespace norvik
