#include "AppUtils.h"
#include "FixedClock.h"
#include "SystemUtils.h"
#include "TDockingPanel.h"
#include "TMainForm.h"
#include "TScaleForm.h"
#include "TestEnvironment.h"
#include "TmodData.h"
#include "TnvDBConfig.h"

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace {

// a page that a hook made, known by its name
QWidget* NamedPage(const QString& AName) {
    auto* page = new QWidget;
    page->setObjectName(AName);
    return page;
}

QStringList PageNames(const TMainForm& AForm) {
    QStringList names;
    for (const QWidget* page : AForm.Pages())
        names << page->objectName();
    return names;
}

class MainFormTest : public ::testing::Test {
protected:
    TmodData Data;
    testsupport::TempDir Outbox;
    QStringList Errors;
    QStringList WizardCalls;
    QPointer<TMainForm> Form;

    void SetUp() override {
        SetExportFolder(Outbox.path());
        StartWith({});
        TMainForm::Hooks() = TMainFormHooks{};
        TMainForm::Hooks().ShowError = [this](QWidget*, const QString& AText) { Errors << AText; };
        TMainForm::Hooks().SettingsPage = [] { return NamedPage(QStringLiteral("settings")); };
        norvik::SetApplicationTitle(QStringLiteral("Orvenna Rückmeldesystem"));
    }

    void TearDown() override {
        delete Form.data();
        TMainForm::Hooks() = TMainFormHooks{};
        StartWith({});
    }

    static void StartWith(QStringList AArguments) {
        AArguments.prepend(QStringLiteral("orvenna"));
        norvik::FillCmdParams(AArguments);
        norvik::FillAppParams(AArguments);
    }

    void SetExportFolder(const QString& AFolder) {
        auto values = norvik::TnvNamedValues::Create();
        values->SetValueAsString(QStringLiteral("ExportFolder"), AFolder);
        norvik::TnvDBConfig::SaveConfig(*Data.GetConnection(), QStringLiteral("DAME"),
                                        QStringLiteral("SYSTEM"), *values);
    }

    void UseWizard() {
        TMainForm::Hooks().Wizard = [this](const QString& AQuestions, const QString& AContent) {
            WizardCalls << AQuestions + u'|' + AContent;
            return NamedPage(QStringLiteral("wizard"));
        };
    }

    TMainForm& Create() {
        Form = new TMainForm(Data);
        return *Form;
    }

    // runs the event loop until the main window has freed itself
    bool WaitForEnd() {
        return QTest::qWaitFor([this] { return Form.isNull(); }, 3000);
    }
};

struct OutboxCase {
    const char* Name;
    bool Exists;
    const char* Folder;
};

class PlainStartTest : public MainFormTest, public ::testing::WithParamInterface<OutboxCase> {};

// Without an existing outbox the settings page stands over the welcome page, with no message.
TEST_P(PlainStartTest, PutsTheSettingsPageOverTheWelcomePageOnlyWithoutOutbox) {
    const OutboxCase& c = GetParam();
    SetExportFolder(c.Folder ? QString::fromUtf8(c.Folder) : Outbox.path());
    TMainForm::Hooks().WelcomePage = [](TMainForm&) { return NamedPage(QStringLiteral("welcome")); };
    TMainForm& form = Create();
    const QStringList expected = c.Exists
                                     ? QStringList{QStringLiteral("welcome")}
                                     : QStringList{QStringLiteral("welcome"), QStringLiteral("settings")};
    EXPECT_EQ(PageNames(form), expected);
    EXPECT_EQ(form.BaseForm()->objectName(), u"welcome");
    EXPECT_EQ(form.DockPanel()->GetDockedForm(), form.Pages().last());
    EXPECT_TRUE(Errors.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Outboxes, PlainStartTest,
                         ::testing::Values(OutboxCase{"Existing", true, nullptr},
                                           OutboxCase{"Empty", false, ""},
                                           OutboxCase{"Missing", false, "/nonexistent/orvenna/outbox"}),
                         [](const auto& AInfo) { return std::string(AInfo.param.Name); });

TEST_F(MainFormTest, PlainStartWithoutWelcomePageShowsAnEmptyPage) {
    TMainForm& form = Create();
    ASSERT_EQ(form.Pages().size(), 1);
    EXPECT_EQ(form.BaseForm(), form.Pages().first());
    EXPECT_EQ(form.DockPanel()->GetDockedForm(), form.BaseForm());
}

TEST_F(MainFormTest, PlainStartOptionsThatAreNoDirectStart) {
    UseWizard();
    for (const QStringList& arguments :
         {QStringList{QStringLiteral("/nodb:0")}, QStringList{QStringLiteral("/nodb")},
          QStringList{QStringLiteral("/q:catalogue.json")}}) {
        StartWith(arguments);
        TMainForm& form = Create();
        EXPECT_EQ(form.Pages().size(), 1) << arguments.join(u' ').toStdString();
        EXPECT_TRUE(WizardCalls.isEmpty());
        delete Form.data();
    }
}

struct DirectCase {
    const char* Name;
    QStringList Arguments;
    const char* Expected;
};

class DirectStartTest : public MainFormTest, public ::testing::WithParamInterface<DirectCase> {};

// The catalogue and the content default to files of the working folder.
TEST_P(DirectStartTest, OpensTheWizardAloneWithCatalogueAndContent) {
    StartWith(GetParam().Arguments);
    UseWizard();
    TMainForm& form = Create();
    EXPECT_EQ(PageNames(form), QStringList{QStringLiteral("wizard")});
    EXPECT_EQ(form.BaseForm(), form.Pages().first());
    EXPECT_EQ(WizardCalls, QStringList{QString::fromUtf8(GetParam().Expected)});
    EXPECT_TRUE(Errors.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Options, DirectStartTest,
    ::testing::Values(
        DirectCase{"NoDb", {QStringLiteral("/nodb:1")}, "questions.json|content.json"},
        DirectCase{"BareContent", {QStringLiteral("/v")}, "questions.json|"},
        DirectCase{"Both", {QStringLiteral("/q:q.json"), QStringLiteral("/V:c.json")}, "q.json|c.json"}),
    [](const auto& AInfo) { return std::string(AInfo.param.Name); });

TEST_F(MainFormTest, DirectStartWithoutOutboxShowsTheErrorAndOnlyTheSettingsPage) {
    SetExportFolder(QString());
    StartWith({QStringLiteral("/v:content.json")});
    UseWizard();
    TMainForm& form = Create();
    EXPECT_EQ(Errors, QStringList{TMainForm::ExportFolderError});
    EXPECT_EQ(Errors.first(),
              QStringLiteral("Es wurde der DaMe Exportpfad nicht oder falsch definiert. Bitte "
                             "konfigurieren Sie das Rückmeldesystem."));
    EXPECT_EQ(PageNames(form), QStringList{QStringLiteral("settings")});
    EXPECT_EQ(form.BaseForm(), form.Pages().first());
    EXPECT_TRUE(WizardCalls.isEmpty());
}

// The outbox is looked at anew for each new feedback.
TEST_F(MainFormTest, OpenWizardChecksTheOutboxEachTime) {
    UseWizard();
    TMainForm& form = Create();
    EXPECT_EQ(form.OpenWizard()->objectName(), u"wizard");
    form.CloseTopPage(false);
    SetExportFolder(Outbox.filePath(QStringLiteral("gone")));
    EXPECT_EQ(form.OpenWizard()->objectName(), u"settings");
    EXPECT_EQ(Errors, QStringList{TMainForm::ExportFolderError});
    EXPECT_EQ(form.Pages().size(), 2);
}

TEST_F(MainFormTest, DirectStartWithNothingToOpenEndsTheProgram) {
    StartWith({QStringLiteral("/nodb:1")});
    Create();
    EXPECT_TRUE(WaitForEnd());
}

TEST_F(MainFormTest, ClosingAPageShowsThePageBeneath) {
    TMainForm& form = Create();
    QWidget* base = form.BaseForm();
    QWidget* first = form.AddPage(NamedPage(QStringLiteral("first")));
    QPointer<QWidget> second = form.AddPage(NamedPage(QStringLiteral("second")));
    EXPECT_TRUE(base->isVisibleTo(&form));
    EXPECT_EQ(form.CloseTopPage(false), first);
    EXPECT_EQ(form.DockPanel()->GetDockedForm(), first);
    EXPECT_TRUE(QTest::qWaitFor([&] { return second.isNull(); }, 3000));
    EXPECT_EQ(PageNames(form).size(), 2);
    EXPECT_FALSE(Form.isNull());
}

TEST_F(MainFormTest, APageThatClosesItselfLeavesTheStack) {
    TMainForm& form = Create();
    QWidget* page = form.AddPage(NamedPage(QStringLiteral("page")));
    page->close();
    EXPECT_TRUE(QTest::qWaitFor([&] { return form.Pages().size() == 1; }, 3000));
    EXPECT_EQ(form.DockPanel()->GetDockedForm(), form.BaseForm());
    EXPECT_FALSE(Form.isNull());
}

// Coming back to the welcome page refreshes its list a moment later.
TEST_F(MainFormTest, ReturningToTheWelcomePageRefreshesItAfterTheDelay) {
    int refreshes = 0;
    TMainForm::Hooks().WelcomePage = [](TMainForm&) { return NamedPage(QStringLiteral("welcome")); };
    TMainForm::Hooks().RefreshWelcomePage = [&](QWidget*) { ++refreshes; };
    TMainForm& form = Create();
    EXPECT_EQ(refreshes, 1);
    EXPECT_EQ(form.RefreshTimer().interval(), 250);
    form.AddPage(NamedPage(QStringLiteral("list")))->close();
    EXPECT_TRUE(QTest::qWaitFor([&] { return refreshes == 2; }, 3000));
    EXPECT_FALSE(form.RefreshTimer().isActive());
}

TEST_F(MainFormTest, ClosingTheLastPagePostsCloseMyApplication) {
    StartWith({QStringLiteral("/nodb:1")});
    UseWizard();
    Create();
    Form->Pages().first()->close();
    EXPECT_TRUE(WaitForEnd());
}

TEST_F(MainFormTest, CloseTopPageOnTheLastPageClosesTheWindow) {
    TMainForm& form = Create();
    QPointer<QWidget> base = form.BaseForm();
    EXPECT_EQ(form.CloseTopPage(false), nullptr);
    EXPECT_TRUE(WaitForEnd());
    EXPECT_TRUE(base.isNull());
}

// Closing the window closes the pages from the top, then the program.
TEST_F(MainFormTest, ClosingTheWindowClosesAllPages) {
    UseWizard();
    TMainForm& form = Create();
    QPointer<QWidget> base = form.BaseForm();
    QPointer<QWidget> wizard = form.OpenWizard();
    EXPECT_TRUE(form.close());
    EXPECT_TRUE(WaitForEnd());
    EXPECT_TRUE(base.isNull());
    EXPECT_TRUE(wizard.isNull());
}

TEST_F(MainFormTest, APageThatRefusesKeepsTheWindowOpen) {
    TMainForm& form = Create();
    auto* blocked = new norvik::TScaleForm;
    blocked->SetCloseBlocked(true);
    form.AddPage(blocked);
    EXPECT_FALSE(form.close());
    EXPECT_EQ(form.Pages().size(), 2);
    EXPECT_EQ(form.Pages().last(), blocked);
    blocked->SetCloseBlocked(false);
    EXPECT_TRUE(form.close());
    EXPECT_TRUE(WaitForEnd());
}

TEST_F(MainFormTest, FooterShowsYearAndVersion) {
    testsupport::FixedClock clock("2031-05-04 10:00:00");
    TMainForm& form = Create();
    const QString expected = QStringLiteral("© 2031 by Orvenna  | Version: ") + norvik::GetFileVersionText();
    EXPECT_EQ(form.VersionText(), expected);
    EXPECT_EQ(form.findChild<QLabel*>(QStringLiteral("lblVersion"))->text(), expected);
}

TEST_F(MainFormTest, HasItsMinimumSize) {
    TMainForm& form = Create();
    EXPECT_EQ(form.minimumSize(), QSize(735, 500));
}

// where the screen has room the window opens larger than its minimum, at the screen's centre
TEST_F(MainFormTest, OpensAtItsStartSizeInTheScreensCentre) {
    TMainForm& form = Create();
    const QRect available = QGuiApplication::primaryScreen()->availableGeometry();
    const QSize expected = QSize(1000, 700).boundedTo(available.size()).expandedTo(QSize(735, 500));
    EXPECT_EQ(form.size(), expected);
    EXPECT_LE((form.geometry().center() - available.center()).manhattanLength(), 2);
}

// a page with two edits below a label, the way a form's fields follow its heading
QWidget* PageWithFields(const QString& AName) {
    QWidget* page = NamedPage(AName);
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(new QLabel(QStringLiteral("Überschrift"), page));
    for (const QString& field : {QStringLiteral("first"), QStringLiteral("second")}) {
        auto* edit = new QLineEdit(page);
        edit->setObjectName(AName + u'.' + field);
        layout->addWidget(edit);
    }
    return page;
}

class ShownMainFormTest : public MainFormTest {
protected:
    TMainForm& CreateShown() {
        TMainForm& form = Create();
        form.show();
        QApplication::setActiveWindow(&form);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
        return form;
    }
    static bool FocusGoesTo(const QString& AName) {
        return QTest::qWaitFor([&] {
            return QApplication::focusWidget() && QApplication::focusWidget()->objectName() == AName;
        });
    }
};

// A page that comes up takes the focus like a form: the user types into its first field at
// once, and coming back to a page finds the field that had the focus.
TEST_F(ShownMainFormTest, ThePageOnTopHasTheFocusInItsField) {
    TMainForm::Hooks().WelcomePage = [](TMainForm&) { return PageWithFields(QStringLiteral("welcome")); };
    TMainForm& form = CreateShown();
    EXPECT_TRUE(FocusGoesTo(QStringLiteral("welcome.first")));
    form.findChild<QLineEdit*>(QStringLiteral("welcome.second"))->setFocus();
    QWidget* top = form.AddPage(PageWithFields(QStringLiteral("top")));
    EXPECT_TRUE(FocusGoesTo(QStringLiteral("top.first")));
    top->close();
    EXPECT_TRUE(FocusGoesTo(QStringLiteral("welcome.second")));
}

// The page beneath stays where it is, but covered: nothing of it shows through the page on
// top, and a Tab never reaches its fields.
TEST_F(ShownMainFormTest, ThePageOnTopCoversThePageBeneath) {
    TMainForm::Hooks().WelcomePage = [](TMainForm&) {
        QWidget* page = PageWithFields(QStringLiteral("welcome"));
        page->setStyleSheet(QStringLiteral("QWidget#welcome { background: #FF0000; }"));
        page->setAttribute(Qt::WA_StyledBackground);
        return page;
    };
    TMainForm& form = CreateShown();
    QWidget* base = form.BaseForm();
    QWidget* top = form.AddPage(PageWithFields(QStringLiteral("top")));
    EXPECT_TRUE(FocusGoesTo(QStringLiteral("top.first")));
    const QImage shown = form.DockPanel()->grab().toImage();
    EXPECT_NE(shown.pixelColor(shown.width() - 4, shown.height() - 4), QColor(Qt::red));
    for (int step = 0; step < 6; ++step) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_FALSE(base->isAncestorOf(QApplication::focusWidget()))
            << QApplication::focusWidget()->objectName().toStdString();
    }
    top->close();
    EXPECT_TRUE(QTest::qWaitFor([&] { return form.Pages().size() == 1; }));
    EXPECT_TRUE(base->isEnabled());
}

struct TitleCase {
    const char* Name;
    const char* Argument;
    const char* Title;
};

class TitleTest : public MainFormTest, public ::testing::WithParamInterface<TitleCase> {};

// The window keeps its caption; the option C names the program in its messages.
TEST_P(TitleTest, TakesTheTitleFromOptionC) {
    StartWith({QString::fromUtf8(GetParam().Argument)});
    EXPECT_EQ(Create().windowTitle(), QStringLiteral("Orvenna Rückmeldesystem für Physiotherapeuten"));
    EXPECT_EQ(norvik::ApplicationTitle(), QString::fromUtf8(GetParam().Title));
}

INSTANTIATE_TEST_SUITE_P(Options, TitleTest,
                         ::testing::Values(TitleCase{"Given", "/C:Praxis Huber", "Praxis Huber"},
                                           TitleCase{"Empty", "/C:", "Orvenna Rückmeldesystem"},
                                           TitleCase{"Absent", "/X:upgrade", "Orvenna Rückmeldesystem"}),
                         [](const auto& AInfo) { return std::string(AInfo.param.Name); });

} // namespace
