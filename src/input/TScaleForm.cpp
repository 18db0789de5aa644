#include "TScaleForm.h"

#include "Events.h"
#include "FormShortCuts.h"
#include "NamedMessages.h"
#include "Scaling.h"
#include "TextProperties.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QResizeEvent>

namespace norvik {

TScaleForm::TTextProvider& TScaleForm::TextProvider() {
    static TTextProvider provider;
    return provider;
}

void TScaleForm::SetTextProvider(const TTextProvider& AProvider) {
    TextProvider() = AProvider;
}

TScaleForm::TScaleForm(QWidget* AParent)
    : QWidget(AParent)
    , FIdle(new TnvIdleScheduler(this)) {
    FIdle->OnSimpleIdleItem = [this](qint64 AID) { DoProcessSimpleIdleItem(AID); };
    FIdle->OnQueueEmpty = [this] { DoIdleQueueEmpty(); };
    FIdle->OnItemDone = [this] { IdleItemDone(); };
    RegisterEvent(FormEventNumber, MethodOf<&TScaleForm::EventHandler>(this));
}

TScaleForm::~TScaleForm() {
    UnregisterEvent(FormEventNumber, MethodOf<&TScaleForm::EventHandler>(this));
    FIdle->Shutdown();
}

TnvIdleActionItem* TScaleForm::AddIdleAction(qint64 APriority, qint64 AID, int ADelay, qint64 ATag,
                                             const TnvIdleProcessEvent& AOnProcess) {
    return FIdle->AddIdleAction(APriority, AID, ADelay, ATag, AOnProcess);
}

void TScaleForm::AddSimpleIdleAction(qint64 AID, qint64 APriority, int ADelay) {
    FIdle->AddSimpleIdleAction(AID, APriority, ADelay);
}

qint64 TScaleForm::AddSimpleIdleEvent(const std::function<void()>& AProc) {
    return FIdle->AddSimpleIdleEvent(AProc);
}

void TScaleForm::AddSimpleIdleEvent(qint64 AID, qint64 APriority, int ADelay, const TnvNotifyEvent& AEvent) {
    FIdle->AddSimpleIdleEvent(AID, APriority, ADelay, AEvent);
}

bool TScaleForm::ExistsSimpleEvent(qint64 AID) const {
    return FIdle->ExistsSimpleEvent(AID);
}

void TScaleForm::RemoveSimpleEvent(qint64 AID) {
    FIdle->RemoveSimpleEvent(AID);
}

bool TScaleForm::CloseQuery() {
    if (FCloseBlocked)
        return false;
    return FormCloseQuery();
}

void TScaleForm::LockWindowPaint() {
    if (FPaintLockCount++ == 0 && isVisible())
        setUpdatesEnabled(false);
}

void TScaleForm::UnlockWindowPaint(bool ARedraw) {
    if (--FPaintLockCount > 0)
        return;
    FPaintLockCount = 0;
    // also when the form was hidden in between, so that it draws again when shown
    if (!updatesEnabled())
        setUpdatesEnabled(true);
    if (ARedraw && isVisible())
        update();
}

void TScaleForm::BeginUpdate() {
    if (FUpdateCount++ == 0)
        DoBeginUpdate();
}

void TScaleForm::EndUpdate() {
    if (FUpdateCount == 0)
        return;
    if (--FUpdateCount == 0)
        DoEndUpdate();
}

void TScaleForm::SaveActiveControl() {
    FSavedActiveControl = focusWidget();
}

void TScaleForm::SetFocus() {
    setFocus();
    QWidget* saved = FSavedActiveControl;
    if (saved && saved->isEnabled() && saved->isVisible() && saved->focusPolicy() != Qt::NoFocus)
        saved->setFocus();
}

void TScaleForm::ResizeToScale() {
    if (FormScalePercent != 100)
        resize(MulDiv(width(), FormScalePercent, 100), MulDiv(height(), FormScalePercent, 100));
    RecalcSize();
}

void TScaleForm::RecalcSize() {
    QResizeEvent resizeStep(size(), size());
    QCoreApplication::sendEvent(this, &resizeStep);
}

int TScaleForm::SetTextProperties(const QString& AText) {
    return norvik::SetTextProperties(this, AText);
}

void TScaleForm::ApplyColorScheme() {
    if (const auto scheme = CurrentColorScheme())
        SetColorScheme(*scheme);
}

bool TScaleForm::CanClearIdleQueue() const {
    return !FIdle->IsRunning();
}

void TScaleForm::EventHandler(QObject*, int) {}

void TScaleForm::DoFormMessage(QEvent*) {}

void TScaleForm::SetColorScheme(const TnvColorScheme&) {}

void TScaleForm::DoProcessSimpleIdleItem(qint64 AID) {
    if (AID == FirstIdleID)
        ProcessFormHints();
}

bool TScaleForm::event(QEvent* AEvent) {
    const QEvent::Type type = AEvent->type();
    if (type == QEvent::Polish && !FCreationFinished)
        FinishCreation();
    if (type == QEvent::DeferredDelete && !CanClearIdleQueue()) {
        // freed while one of its idle items runs: the form goes when the item has returned
        FReleaseAfterIdleItem = true;
        return true;
    }
    if (type == QEvent::ShortcutOverride) {
        const auto* key = static_cast<QKeyEvent*>(AEvent);
        if (IsKeyForFocusedControl(key->key(), key->modifiers())) {
            AEvent->accept();
            return true;
        }
    }
    static const QEvent::Type evaluateColorScheme = NamedMessageType(NamedMessages::EvaluateColorScheme);
    if (type == evaluateColorScheme) {
        ApplyColorScheme();
        return true;
    }
    if (type == FormMessageEvent) {
        DoFormMessage(AEvent);
        return true;
    }
    return QWidget::event(AEvent);
}

void TScaleForm::closeEvent(QCloseEvent* AEvent) {
    if (CloseQuery())
        AEvent->accept();
    else
        AEvent->ignore();
}

void TScaleForm::showEvent(QShowEvent* AEvent) {
    QWidget::showEvent(AEvent);
    if (FShownBefore)
        return;
    FShownBefore = true;
    if (WantsFirstIdle())
        AddSimpleIdleAction(FirstIdleID, FirstIdlePriority, FirstIdleDelay);
}

void TScaleForm::FinishCreation() {
    FCreationFinished = true;
    const auto scheme = CurrentColorScheme();
    // a font given to the form on purpose stays
    if (scheme && !testAttribute(Qt::WA_SetFont) && DoSetWindowFont())
        setFont(scheme->Font);
    ApplyColorScheme();
    ApplyProvidedTexts();
}

void TScaleForm::ApplyProvidedTexts() {
    const TTextProvider& provider = TextProvider();
    if (!provider)
        return;
    const QString className = QString::fromLatin1(metaObject()->className()).section(u':', -1);
    for (const QString& name : {className, QString(className + u'_' + FFormVariant), className}) {
        const QString text = provider(name);
        if (!text.isEmpty())
            SetTextProperties(text);
    }
}

void TScaleForm::IdleItemDone() {
    if (!FReleaseAfterIdleItem)
        return;
    FIdle->Shutdown();
    QCoreApplication::postEvent(this, new QDeferredDeleteEvent());
}

} // namespace norvik
