#pragma once

#include "TnvColorScheme.h"
#include "TnvIdleScheduler.h"
#include "TnvLOG.h"

#include <QEvent>
#include <QPointer>
#include <QWidget>
#include <functional>

namespace norvik {

// The base of every form of the program: an idle queue, a paint lock, an update bracket, a
// log of its own, texts patched in from outside, the colour scheme and the rules of closing.
class TScaleForm : public QWidget {
    Q_OBJECT

public:
    // the form's own message, which DoFormMessage receives
    static constexpr QEvent::Type FormMessageEvent = static_cast<QEvent::Type>(QEvent::User + 1774);
    // the simple idle action a form that wants it queues at its first showing
    static constexpr qint64 FirstIdleID = 1;
    static constexpr qint64 FirstIdlePriority = 50;
    static constexpr int FirstIdleDelay = 150;

    // gives the text for a name, or an empty text; nothing is installed unless someone does
    using TTextProvider = std::function<QString(const QString& AName)>;
    static void SetTextProvider(const TTextProvider& AProvider);

    explicit TScaleForm(QWidget* AParent = nullptr);
    ~TScaleForm() override;

    TnvIdleActionItem* AddIdleAction(qint64 APriority, qint64 AID, int ADelay, qint64 ATag,
                                     const TnvIdleProcessEvent& AOnProcess);
    // DoProcessSimpleIdleItem(AID) runs on its turn
    void AddSimpleIdleAction(qint64 AID, qint64 APriority, int ADelay);
    // the callback runs on its turn; returns its ID
    qint64 AddSimpleIdleEvent(const std::function<void()>& AProc);
    // the notify event fires on its turn with the form as sender
    void AddSimpleIdleEvent(qint64 AID, qint64 APriority, int ADelay, const TnvNotifyEvent& AEvent);
    bool ExistsSimpleEvent(qint64 AID) const;
    void RemoveSimpleEvent(qint64 AID);
    const TnvIdleActionCollection& IdleActions() const { return FIdle->IdleActions(); }
    const QTimer& IdleTimer() const { return FIdle->IdleTimer(); }

    // while set, the form cannot be closed, whatever FormCloseQuery says
    bool CloseBlocked() const { return FCloseBlocked; }
    void SetCloseBlocked(bool AValue) { FCloseBlocked = AValue; }
    bool CloseQuery();

    // Stops the window from drawing itself until the matching unlock; locks nest.
    void LockWindowPaint();
    void UnlockWindowPaint(bool ARedraw = true);
    int PaintLockCount() const { return FPaintLockCount; }

    void BeginUpdate();
    void EndUpdate();
    bool InUpdate() const { return FUpdateCount > 0; }

    void SaveActiveControl();
    QWidget* GetSavedActiveControl() const { return FSavedActiveControl; }
    // focuses the form and then the saved control, if it can take the focus
    void SetFocus();

    // applies FormScalePercent to the form's size, then its resize step
    void ResizeToScale();
    void RecalcSize();

    // see norvik::SetTextProperties; returns the number of lines not applied
    int SetTextProperties(const QString& AText);
    QString FormVariant() const { return FFormVariant; }
    void SetFormVariant(const QString& AValue) { FFormVariant = AValue; }

    void ApplyColorScheme();

    TnvLOG& LogLines() { return FLogLines; }
    void Log(const QString& AText, bool ATimeStamp = false) { FLogLines.Log(AText, ATimeStamp); }
    void Log2(const QString& AText, bool ANewLine = false) { FLogLines.Log2(AText, ANewLine); }
    void CreateLogHeader(const QString& ATitle) { FLogLines.CreateLogHeader(ATitle); }
    void CreateLogFooter(const QString& AText) { FLogLines.CreateLogFooter(AText); }
    void ClearLog() { FLogLines.ClearLog(); }
    void SaveLogToFile(const QString& AFileName) const { FLogLines.SaveLogToFile(AFileName); }
    void SaveLogToStream(QIODevice& AStream) const { FLogLines.SaveLogToStream(AStream); }

protected:
    // true when no idle item runs
    virtual bool CanClearIdleQueue() const;
    // runs when the idle queue has run empty
    virtual void DoIdleQueueEmpty() {}
    // the form's subscription to event 67002
    virtual void EventHandler(QObject* Sender, int AEventNumber);
    virtual bool WantsFirstIdle() const { return false; }
    virtual void DoFormMessage(QEvent* AEvent);
    virtual void DoBeginUpdate() {}
    virtual void DoEndUpdate() {}
    virtual void SetColorScheme(const TnvColorScheme& AScheme);
    // the form's work at its first idle moment
    virtual void ProcessFormHints() {}
    virtual void DoProcessSimpleIdleItem(qint64 AID);
    // whether the form takes the colour scheme's font
    virtual bool DoSetWindowFont() const { return true; }
    // the form's own answer to a request to close
    virtual bool FormCloseQuery() { return true; }

    bool event(QEvent* AEvent) override;
    void closeEvent(QCloseEvent* AEvent) override;
    void showEvent(QShowEvent* AEvent) override;

private:
    TnvLOG FLogLines;
    TnvIdleScheduler* FIdle;
    bool FCloseBlocked = false;
    int FPaintLockCount = 0;
    int FUpdateCount = 0;
    QPointer<QWidget> FSavedActiveControl;
    QString FFormVariant;
    bool FCreationFinished = false;
    bool FShownBefore = false;
    bool FReleaseAfterIdleItem = false;

    static TTextProvider& TextProvider();
    // the steps of creation that need the finished descendant: font, scheme and texts
    void FinishCreation();
    void ApplyProvidedTexts();
    void IdleItemDone();
};

} // namespace norvik
