#include "ScriptedDialogs.h"
#include "TnvDialogs.h"
#include "TnvValidatedEdit.h"

#include <QApplication>
#include <QTest>
#include <gtest/gtest.h>

using norvik::TnvDialogs;
using norvik::TnvValidatedEdit;

namespace {

void RequireText(const QString& AValue, QString& AErrorText, bool& AError) {
    if (AValue.trimmed().isEmpty()) {
        AError = true;
        AErrorText = QStringLiteral("Der Wert darf nicht leer bleiben.");
    }
}

// two edits in a window, so that the focus has somewhere to go
class ValidatedEditTest : public ::testing::Test {
protected:
    QWidget Window;
    TnvValidatedEdit* Edit = new TnvValidatedEdit(&Window);
    TnvValidatedEdit* Other = new TnvValidatedEdit(&Window);

    void SetUp() override {
        Other->move(0, 40);
        Edit->SetValidateEvent(RequireText);
        Window.show();
        QApplication::setActiveWindow(&Window);
        Edit->setFocus();
    }
};

} // namespace

TEST_F(ValidatedEditTest, AskingForValidityShowsNothing) {
    EXPECT_FALSE(Edit->IsValid());
    EXPECT_FALSE(Edit->ErrorShown());
    EXPECT_TRUE(Edit->toolTip().isEmpty());
}

TEST_F(ValidatedEditTest, LeavingAWrongValueMarksItAndLetsTheFocusGo) {
    Other->setFocus();
    EXPECT_TRUE(Other->hasFocus());
    EXPECT_TRUE(Edit->ErrorShown());
    EXPECT_EQ(Edit->ErrorText(), QStringLiteral("Der Wert darf nicht leer bleiben."));
    EXPECT_EQ(Edit->toolTip(), Edit->ErrorText());
}

TEST_F(ValidatedEditTest, CorrectingTheValueTakesTheMarkAway) {
    Other->setFocus();
    Edit->setFocus();
    QTest::keyClicks(Edit, QStringLiteral("Muster"));
    Other->setFocus();
    EXPECT_FALSE(Edit->ErrorShown());
    EXPECT_TRUE(Edit->ErrorText().isEmpty());
    EXPECT_TRUE(Edit->IsValid());
}

TEST_F(ValidatedEditTest, AnEditWithoutCheckIsAlwaysValid) {
    EXPECT_FALSE(Other->HasValidateEvent());
    EXPECT_TRUE(Other->IsValid());
    Edit->setFocus();
    EXPECT_FALSE(Other->ErrorShown());
}

TEST(ScriptedDialogsTest, AnswersFromItsScriptAndGivesTheToolkitBackAtItsEnd) {
    const auto before = TnvDialogs::Hooks().Choice.target_type().hash_code();
    {
        testsupport::ScriptedDialogs user;
        user.AnswerChoice(1);
        user.AnswerFile(QStringLiteral("/tmp/brief.pdf"));
        EXPECT_EQ(TnvDialogs::AskChoice(nullptr, QStringLiteral("T"), QStringLiteral("Frage?"),
                                        {QStringLiteral("Ja"), QStringLiteral("Nein")}),
                  1);
        // an answer that was not queued is a cancel
        EXPECT_EQ(TnvDialogs::AskChoice(nullptr, QStringLiteral("T"), QStringLiteral("Noch?"), {}), -1);
        EXPECT_EQ(
            TnvDialogs::GetSaveFileName(nullptr, {QStringLiteral("Speichern"), {}, {}, {}, false, true}),
            QStringLiteral("/tmp/brief.pdf"));
        EXPECT_TRUE(TnvDialogs::GetOpenFileName(nullptr, {}).isEmpty());
        TnvDialogs::ShowErrorWithDetails(nullptr, QStringLiteral("Fehler"), QStringLiteral("- Grund"));
        EXPECT_EQ(user.Texts(QStringLiteral("choice")),
                  QStringList({QStringLiteral("Frage?"), QStringLiteral("Noch?")}));
        EXPECT_EQ(user.Messages().last().Details, QStringLiteral("- Grund"));
        EXPECT_EQ(user.FileRequests().first().Caption, QStringLiteral("Speichern"));
    }
    EXPECT_EQ(TnvDialogs::Hooks().Choice.target_type().hash_code(), before);
}
