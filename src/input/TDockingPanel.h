#pragma once

#include "TnvIdleActionItem.h"

#include <QFrame>
#include <QMetaObject>

namespace norvik {

// Shows a form inside another one as a page: the docked form loses its border and fills the
// panel's client area, which it follows when the panel is resized.
class TDockingPanel : public QFrame {
public:
    explicit TDockingPanel(QWidget* AParent = nullptr);
    ~TDockingPanel() override;

    // fired with the panel as sender after a form was docked
    TnvNotifyEvent OnDocked;
    // fired when a form leaves the panel, also when it is destroyed elsewhere
    TnvNotifyEvent OnUnDocked;

    // Docks the form; the form docked before fires OnUnDocked and, with AReleaseOld, is hidden
    // and taken out of the panel. Docking the docked form again changes nothing.
    void DockForm(QWidget* AForm, bool AReleaseOld = true, bool AVisible = true);
    void SetDockedForm(QWidget* AForm) { DockForm(AForm, true, true); }
    // docks a new form of the registered class; an empty name, the class docked now or a class
    // nobody registered change nothing, and the answer is false
    bool SetDockFormByClass(const QString& AClassName);
    // undocks the form and frees it
    void ReleaseDockForm();
    QWidget* GetDockedForm() const { return FDockedForm; }

protected:
    void resizeEvent(QResizeEvent* AEvent) override;

private:
    QWidget* FDockedForm = nullptr;
    QMetaObject::Connection FWatch;

    QWidget* Undock();
    void FitDockedForm();
    void Fire(const TnvNotifyEvent& AEvent);
};

} // namespace norvik
