#include "EventLoopWait.h"
#include "Events.h"
#include "NamedMessages.h"
#include "Scaling.h"
#include "TScaleForm.h"
#include "TestEnvironment.h"

#include <QAction>
#include <QBuffer>
#include <QFile>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

using namespace norvik;
using inputtests::RunEventLoop;
using inputtests::WaitUntil;

namespace inputtests {

// A form that records which of its hooks ran.
class ProbeForm : public TScaleForm {
    Q_OBJECT

public:
    QStringList Calls;
    bool AnswerClose = true;
    bool TakesSchemeFont = true;
    QLineEdit* Edit = new QLineEdit(this);
    QPushButton* Button = new QPushButton(this);

    ProbeForm() {
        Edit->setObjectName(QStringLiteral("edtName"));
        Button->setObjectName(QStringLiteral("cmdOk"));
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(Edit);
        layout->addWidget(Button);
    }

protected:
    bool FormCloseQuery() override {
        Calls << QStringLiteral("closequery");
        return AnswerClose;
    }
    void DoBeginUpdate() override { Calls << QStringLiteral("begin"); }
    void DoEndUpdate() override { Calls << QStringLiteral("end"); }
    void SetColorScheme(const TnvColorScheme& AScheme) override {
        Calls << QStringLiteral("scheme ") + AScheme.Name;
    }
    void EventHandler(QObject*, int AEventNumber) override {
        Calls << QStringLiteral("event %1").arg(AEventNumber);
    }
    void DoFormMessage(QEvent*) override { Calls << QStringLiteral("message"); }
    bool DoSetWindowFont() const override { return TakesSchemeFont; }
    void resizeEvent(QResizeEvent* AEvent) override {
        Calls << QStringLiteral("resize");
        TScaleForm::resizeEvent(AEvent);
    }
};

} // namespace inputtests

namespace {

using inputtests::ProbeForm;

class ScaleFormTest : public ::testing::Test {
protected:
    ProbeForm form;

    void TearDown() override {
        SetCurrentColorScheme(nullptr);
        TScaleForm::SetTextProvider({});
        FormScalePercent = 100;
    }
};

struct CloseCase {
    bool Blocked;
    bool HandlerAnswer;
    bool Closes;
};

class CloseQueryTest : public ::testing::TestWithParam<CloseCase> {};

TEST_P(CloseQueryTest, BlockedFormNeverCloses) {
    ProbeForm form;
    form.SetCloseBlocked(GetParam().Blocked);
    form.AnswerClose = GetParam().HandlerAnswer;
    form.show();
    EXPECT_EQ(form.CloseQuery(), GetParam().Closes);
    EXPECT_EQ(form.close(), GetParam().Closes);
    EXPECT_EQ(form.isVisible(), !GetParam().Closes);
}

INSTANTIATE_TEST_SUITE_P(Cases, CloseQueryTest,
                         ::testing::Values(CloseCase{false, true, true}, CloseCase{false, false, false},
                                           CloseCase{true, true, false}, CloseCase{true, false, false}));

TEST_F(ScaleFormTest, CloseBlockedIsOffAtCreation) {
    EXPECT_FALSE(form.CloseBlocked());
}

TEST_F(ScaleFormTest, PaintLockNestsAndStopsDrawingOfAVisibleForm) {
    form.show();
    form.LockWindowPaint();
    form.LockWindowPaint();
    EXPECT_FALSE(form.updatesEnabled());
    form.UnlockWindowPaint();
    EXPECT_FALSE(form.updatesEnabled());
    EXPECT_EQ(form.PaintLockCount(), 1);
    form.UnlockWindowPaint(false);
    EXPECT_TRUE(form.updatesEnabled());
    EXPECT_EQ(form.PaintLockCount(), 0);
}

TEST_F(ScaleFormTest, UnlockWithoutLockLeavesTheCountAtZero) {
    form.show();
    form.UnlockWindowPaint();
    form.UnlockWindowPaint();
    EXPECT_EQ(form.PaintLockCount(), 0);
    form.LockWindowPaint();
    EXPECT_EQ(form.PaintLockCount(), 1);
    EXPECT_FALSE(form.updatesEnabled());
}

TEST_F(ScaleFormTest, HiddenFormOnlyCountsPaintLocks) {
    form.LockWindowPaint();
    EXPECT_EQ(form.PaintLockCount(), 1);
    EXPECT_TRUE(form.updatesEnabled());
    form.UnlockWindowPaint();
    EXPECT_EQ(form.PaintLockCount(), 0);
}

TEST_F(ScaleFormTest, FormHiddenWhileLockedDrawsAgainAfterUnlock) {
    form.show();
    form.LockWindowPaint();
    form.hide();
    form.UnlockWindowPaint();
    EXPECT_TRUE(form.updatesEnabled());
}

TEST_F(ScaleFormTest, UpdateBracketCallsItsHooksAtTheOuterLevel) {
    form.BeginUpdate();
    form.BeginUpdate();
    EXPECT_TRUE(form.InUpdate());
    form.EndUpdate();
    EXPECT_TRUE(form.InUpdate());
    form.EndUpdate();
    EXPECT_FALSE(form.InUpdate());
    form.EndUpdate();
    EXPECT_EQ(form.Calls, (QStringList{QStringLiteral("begin"), QStringLiteral("end")}));
}

TEST_F(ScaleFormTest, ColorSchemeReachesTheFormByMessage) {
    auto scheme = std::make_shared<TnvColorScheme>();
    scheme->Name = QStringLiteral("Hell");
    SetCurrentColorScheme(scheme);
    EXPECT_FALSE(form.Calls.contains(QStringLiteral("scheme Hell")));
    QCoreApplication::sendPostedEvents(&form);
    EXPECT_TRUE(form.Calls.contains(QStringLiteral("scheme Hell")));
}

TEST_F(ScaleFormTest, EvaluateColorSchemeWithoutSchemeDoesNothing) {
    QEvent message(NamedMessageType(NamedMessages::EvaluateColorScheme));
    QCoreApplication::sendEvent(&form, &message);
    EXPECT_TRUE(form.Calls.isEmpty());
}

TEST_F(ScaleFormTest, FormTakesTheSchemesFontWhenItWantsIt) {
    auto scheme = std::make_shared<TnvColorScheme>();
    scheme->Font = QFont(QStringLiteral("Serif"), 17);
    SetCurrentColorScheme(scheme);
    ProbeForm wanting;
    ProbeForm refusing;
    refusing.TakesSchemeFont = false;
    ProbeForm ownFont;
    ownFont.setFont(QFont(QStringLiteral("Monospace"), 9));
    for (ProbeForm* probe : {&wanting, &refusing, &ownFont})
        probe->ensurePolished();
    EXPECT_EQ(wanting.font().pointSize(), 17);
    EXPECT_NE(refusing.font().pointSize(), 17);
    EXPECT_EQ(ownFont.font().pointSize(), 9);
    EXPECT_TRUE(wanting.Calls.contains(QStringLiteral("scheme ")));
}

TEST_F(ScaleFormTest, TextProviderPatchesTheFormWhenItIsReady) {
    QStringList asked;
    TScaleForm::SetTextProvider([&](const QString& AName) {
        asked << AName;
        return AName == QStringLiteral("ProbeForm_Kurz") ? QStringLiteral("cmdOk.text=Fertig") : QString();
    });
    ProbeForm patched;
    patched.SetFormVariant(QStringLiteral("Kurz"));
    patched.ensurePolished();
    EXPECT_EQ(patched.Button->text(), QStringLiteral("Fertig"));
    EXPECT_EQ(asked, (QStringList{QStringLiteral("ProbeForm"), QStringLiteral("ProbeForm_Kurz"),
                                  QStringLiteral("ProbeForm")}));
}

TEST_F(ScaleFormTest, FormHearsEvent67002WhileItLives) {
    const int before = RegisteredEventCount(FormEventNumber);
    {
        ProbeForm living;
        EXPECT_EQ(RegisteredEventCount(FormEventNumber), before + 1);
        FireEvent(nullptr, FormEventNumber);
        EXPECT_TRUE(living.Calls.contains(QStringLiteral("event 67002")));
    }
    EXPECT_EQ(RegisteredEventCount(FormEventNumber), before);
    FireEvent(nullptr, FormEventNumber);
}

TEST_F(ScaleFormTest, FormMessageReachesItsHook) {
    QEvent message(TScaleForm::FormMessageEvent);
    QCoreApplication::sendEvent(&form, &message);
    EXPECT_EQ(form.Calls, QStringList{QStringLiteral("message")});
}

struct ShortCutCase {
    int Key;
    Qt::KeyboardModifiers Modifiers;
    bool KeptForControl;
};

void PrintTo(const ShortCutCase& ACase, std::ostream* AOut) {
    *AOut << "key " << ACase.Key << " modifiers " << ACase.Modifiers.toInt();
}

class FormShortCutTest : public ::testing::TestWithParam<ShortCutCase> {};

TEST_P(FormShortCutTest, ListCommandKeysAreNoShortCutsOfTheForm) {
    ProbeForm form;
    QKeyEvent override(QEvent::ShortcutOverride, GetParam().Key, GetParam().Modifiers);
    override.ignore();
    QCoreApplication::sendEvent(&form, &override);
    EXPECT_EQ(override.isAccepted(), GetParam().KeptForControl);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, FormShortCutTest,
    ::testing::Values(ShortCutCase{Qt::Key_S, Qt::ControlModifier, true},
                      ShortCutCase{Qt::Key_Enter, Qt::ControlModifier | Qt::KeypadModifier, true},
                      ShortCutCase{Qt::Key_Q, Qt::ControlModifier, false},
                      ShortCutCase{Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier, false}));

TEST_F(ScaleFormTest, ControlKeyOfTheFocusedControlDoesNotTriggerTheFormsShortCut) {
    int saves = 0;
    int quits = 0;
    auto* save = new QAction(&form);
    save->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_S));
    QObject::connect(save, &QAction::triggered, [&] { ++saves; });
    auto* quit = new QAction(&form);
    quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    QObject::connect(quit, &QAction::triggered, [&] { ++quits; });
    form.addAction(save);
    form.addAction(quit);
    form.show();
    form.activateWindow();
    ASSERT_TRUE(WaitUntil([&] { return QApplication::activeWindow() == &form; }));
    form.Edit->setFocus();
    QTest::keyClick(form.Edit, Qt::Key_S, Qt::ControlModifier);
    QTest::keyClick(form.Edit, Qt::Key_Q, Qt::ControlModifier);
    EXPECT_EQ(saves, 0);
    EXPECT_EQ(quits, 1);
}

TEST_F(ScaleFormTest, SetFocusReturnsToTheSavedControl) {
    form.show();
    form.activateWindow();
    ASSERT_TRUE(WaitUntil([&] { return QApplication::activeWindow() == &form; }));
    form.Button->setFocusPolicy(Qt::StrongFocus);
    form.Edit->setFocus();
    form.SaveActiveControl();
    EXPECT_EQ(form.GetSavedActiveControl(), form.Edit);
    form.Button->setFocus();
    form.SetFocus();
    EXPECT_EQ(QApplication::focusWidget(), form.Edit);
}

TEST_F(ScaleFormTest, DisabledSavedControlKeepsNoFocus) {
    form.show();
    form.activateWindow();
    ASSERT_TRUE(WaitUntil([&] { return QApplication::activeWindow() == &form; }));
    form.Edit->setFocus();
    form.SaveActiveControl();
    form.Edit->setEnabled(false);
    form.SetFocus();
    EXPECT_NE(QApplication::focusWidget(), form.Edit);
}

TEST_F(ScaleFormTest, ResizeToScaleAppliesTheFormScale) {
    form.resize(400, 300);
    form.Calls.clear();
    form.ResizeToScale();
    EXPECT_EQ(form.size(), QSize(400, 300));
    EXPECT_TRUE(form.Calls.contains(QStringLiteral("resize")));
    FormScalePercent = 125;
    form.ResizeToScale();
    EXPECT_EQ(form.size(), QSize(500, 375));
}

TEST_F(ScaleFormTest, LogHasTheCallsOfTheLogClass) {
    testsupport::TempDir dir;
    form.CreateLogHeader(QStringLiteral("Titel"));
    form.ClearLog();
    form.Log(QStringLiteral("eins"));
    form.Log2(QStringLiteral("zwei"));
    form.CreateLogFooter(QStringLiteral("Ende"));
    EXPECT_EQ(form.LogLines().Lines().first(), QStringLiteral("eins zwei"));
    const QString path = dir.filePath(QStringLiteral("form.log"));
    form.SaveLogToFile(path);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().startsWith("eins zwei\r\n"));
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    form.SaveLogToStream(buffer);
    EXPECT_EQ(buffer.data().count("\r\n"), form.LogLines().Lines().size());
}

} // namespace

#include "ScaleFormTest.moc"
