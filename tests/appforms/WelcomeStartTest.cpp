#include "AppUtils.h"
#include "FeedbackRows.h"
#include "InvDBConnection.h"
#include "ScriptedDialogs.h"
#include "SystemUtils.h"
#include "TDockingPanel.h"
#include "TEmptyTextGrid.h"
#include "TImageCollection.h"
#include "TMainForm.h"
#include "TWelcomeForm.h"
#include "TWelcomeTile.h"
#include "TestEnvironment.h"
#include "TmodData.h"
#include "TnvDBConfig.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <gtest/gtest.h>

namespace {

QWidget* NamedPage(const QString& AName) {
    auto* page = new QWidget;
    page->setObjectName(AName);
    return page;
}

// The main window as it starts with its real welcome page; settings page and wizard are
// stand-ins known by their names.
class WelcomeStartTest : public ::testing::Test {
protected:
    TmodData Data;
    testsupport::TempDir Outbox;
    testsupport::ScriptedDialogs Dialogs;
    QStringList Errors;
    QPointer<TMainForm> Form;

    norvik::InvDBConnection& Connection() { return *Data.GetConnection(); }

    void SetUp() override {
        ASSERT_NE(Data.GetConnection(), nullptr);
        feedbackrows::Clear(Connection());
        norvik::FillCmdParams({QStringLiteral("orvenna")});
        norvik::FillAppParams({QStringLiteral("orvenna")});
        SetExportFolder(Outbox.path());
        TMainForm::Hooks() = TMainForm::DefaultHooks();
        TMainForm::Hooks().SettingsPage = [] { return NamedPage(QStringLiteral("settings")); };
        TMainForm::Hooks().Wizard = [](const QString&, const QString&) {
            return NamedPage(QStringLiteral("wizard"));
        };
        TMainForm::Hooks().ShowError = [this](QWidget*, const QString& AText) { Errors << AText; };
    }

    void TearDown() override {
        delete Form.data();
        delete TWelcomeForm::Instance();
        TMainForm::Hooks() = TMainForm::DefaultHooks();
        feedbackrows::Clear(Connection());
    }

    void SetExportFolder(const QString& AFolder) {
        auto values = norvik::TnvNamedValues::Create();
        values->SetValueAsString(QStringLiteral("ExportFolder"), AFolder);
        norvik::TnvDBConfig::SaveConfig(Connection(), QStringLiteral("DAME"), QStringLiteral("SYSTEM"),
                                        *values);
    }

    void AddDocument(qint64 AID, const QString& ADate) {
        feedbackrows::AddPatient(Connection(), AID, QStringLiteral("Anna"),
                                 QStringLiteral("Huber %1").arg(AID));
        feedbackrows::AddDocument(Connection(), AID, AID, ADate, QStringLiteral("Maria Steiner"));
    }

    TMainForm& Create() {
        Form = new TMainForm(Data);
        Form->show();
        return *Form;
    }

    TWelcomeForm* Welcome() const { return qobject_cast<TWelcomeForm*>(Form->BaseForm()); }
    int ListedRows() const { return Welcome()->Grid()->model()->rowCount(); }

    QStringList PageNames() const {
        QStringList names;
        for (const QWidget* page : Form->Pages())
            names << page->objectName();
        return names;
    }

    void ClickTile(int AIndex) { QTest::mouseClick(Welcome()->Tile(AIndex)->TextLabel(), Qt::LeftButton); }
};

TEST_F(WelcomeStartTest, APlainStartWithOutboxShowsTheWelcomePageAlone) {
    AddDocument(1, QStringLiteral("2026-03-10 09:15:00"));
    TMainForm& form = Create();
    ASSERT_NE(Welcome(), nullptr);
    EXPECT_EQ(form.Pages(), QList<QWidget*>{Welcome()});
    EXPECT_EQ(Welcome(), TWelcomeForm::Instance());
    EXPECT_EQ(form.DockPanel()->GetDockedForm(), Welcome());
    // the list is read when the page is first shown
    EXPECT_EQ(ListedRows(), 1);
    EXPECT_TRUE(Welcome()->ConfigButton()->isEnabled());
    EXPECT_TRUE(Errors.isEmpty());
}

// Without an outbox the settings page stands over the welcome page, with no message.
TEST_F(WelcomeStartTest, APlainStartWithoutOutboxPutsTheSettingsPageOverIt) {
    SetExportFolder(Outbox.filePath(QStringLiteral("missing")));
    TMainForm& form = Create();
    EXPECT_EQ(PageNames(), (QStringList{QStringLiteral("WelcomeForm"), QStringLiteral("settings")}));
    EXPECT_EQ(form.BaseForm(), TWelcomeForm::Instance());
    EXPECT_TRUE(Errors.isEmpty());
}

TEST_F(WelcomeStartTest, TheNewFeedbackTileOpensTheWizard) {
    Create();
    ClickTile(0);
    EXPECT_EQ(PageNames(), (QStringList{QStringLiteral("WelcomeForm"), QStringLiteral("wizard")}));
}

TEST_F(WelcomeStartTest, TheNewFeedbackTileWithoutOutboxOpensTheSettingsWithTheMessage) {
    Create();
    SetExportFolder(QString());
    ClickTile(0);
    EXPECT_EQ(PageNames(), (QStringList{QStringLiteral("WelcomeForm"), QStringLiteral("settings")}));
    EXPECT_EQ(Errors, QStringList{TMainForm::ExportFolderError});
}

TEST_F(WelcomeStartTest, TheSettingsButtonOpensTheSettingsPage) {
    Create();
    QTest::mouseClick(Welcome()->ConfigButton(), Qt::LeftButton);
    EXPECT_EQ(PageNames(), (QStringList{QStringLiteral("WelcomeForm"), QStringLiteral("settings")}));
}

// The lists are not there yet: their tiles leave the welcome page alone.
TEST_F(WelcomeStartTest, TheListTilesOpenNothing) {
    Create();
    ClickTile(1);
    ClickTile(2);
    EXPECT_EQ(PageNames(), QStringList{QStringLiteral("WelcomeForm")});
}

// Closing the settings page leads back to the welcome page; closing that one ends the program
// and frees the welcome page.
TEST_F(WelcomeStartTest, ClosingThePagesOneByOneEndsTheProgram) {
    SetExportFolder(QString());
    TMainForm& form = Create();
    QPointer<TWelcomeForm> welcome = Welcome();
    form.Pages().last()->close();
    ASSERT_TRUE(QTest::qWaitFor([&] { return form.Pages().size() == 1; }, 3000));
    EXPECT_EQ(form.DockPanel()->GetDockedForm(), welcome);
    EXPECT_TRUE(welcome->isVisible());
    EXPECT_EQ(form.CloseTopPage(false), nullptr);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Form.isNull(); }, 3000));
    EXPECT_TRUE(welcome.isNull());
    EXPECT_EQ(TWelcomeForm::Instance(), nullptr);
}

// The list is read again a quarter of a second after the user came back to the welcome page.
TEST_F(WelcomeStartTest, TheListIsFreshAMomentAfterComingBack) {
    TMainForm& form = Create();
    ClickTile(0);
    ASSERT_EQ(form.Pages().size(), 2);
    AddDocument(7, QStringLiteral("2026-03-12 14:30:00"));
    QPointer<QWidget> wizard = form.Pages().last();
    wizard->close();
    ASSERT_TRUE(QTest::qWaitFor([&] { return wizard.isNull(); }, 3000));
    QElapsedTimer elapsed;
    elapsed.start();
    EXPECT_EQ(ListedRows(), 0);
    EXPECT_TRUE(form.RefreshTimer().isActive());
    EXPECT_TRUE(QTest::qWaitFor([&] { return ListedRows() == 1; }, 3000));
    EXPECT_GE(elapsed.elapsed(), 150);
    EXPECT_EQ(Welcome()->Grid()->model()->index(0, 1).data().toString(), u"Anna Huber 7");
}

// A list that cannot be read is reported; the program goes on with the page as it was.
TEST_F(WelcomeStartTest, AListThatCannotBeReadIsReported) {
    Connection().PSExecuteStatement(QStringLiteral("ALTER TABLE tblDokumente RENAME TO tblDokumenteAside"));
    Create();
    Connection().PSExecuteStatement(QStringLiteral("ALTER TABLE tblDokumenteAside RENAME TO tblDokumente"));
    EXPECT_EQ(Dialogs.Texts(QStringLiteral("error")),
              QStringList{QStringLiteral("Die letzten Rückmeldebögen konnten nicht gelesen werden.")});
    EXPECT_EQ(PageNames(), QStringList{QStringLiteral("WelcomeForm")});
    EXPECT_EQ(ListedRows(), 0);
}

TEST_F(WelcomeStartTest, TheMainWindowFindsItsSmallPicturesByName) {
    const TImageCollection& images = TMainForm::Images();
    EXPECT_EQ(images.Names(), (QStringList{QStringLiteral("cloud-employee"), QStringLiteral("people-doctor"),
                                           QStringLiteral("contact-card")}));
    EXPECT_EQ(images.Size(), QSize(32, 16));
    for (const QString& name : images.Names()) {
        const QPixmap pixmap = images.Pixmap(name);
        EXPECT_FALSE(pixmap.isNull()) << name.toStdString();
        EXPECT_EQ(pixmap.size(), QSize(32, 16)) << name.toStdString();
    }
    EXPECT_FALSE(images.Pixmap(QStringLiteral("CONTACT-CARD")).isNull());
    EXPECT_TRUE(images.Pixmap(QStringLiteral("unknown")).isNull());
}

TEST_F(WelcomeStartTest, TheWindowCarriesTheProgramIcon) {
    TMainForm& form = Create();
    EXPECT_FALSE(TMainForm::ProgramIcon().pixmap(64, 64).isNull());
    EXPECT_EQ(form.windowIcon().pixmap(64, 64).toImage(), TMainForm::ProgramIcon().pixmap(64, 64).toImage());
}

} // namespace
