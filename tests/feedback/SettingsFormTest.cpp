#include "BuiltInResources.h"
#include "InvDBConnection.h"
#include "ScriptedDialogs.h"
#include "SettingsTestDatabase.h"
#include "TMainForm.h"
#include "TSettingsForm.h"
#include "TestEnvironment.h"
#include "TnvValidatedEdit.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPointer>
#include <QRegularExpression>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QTextDocument>

using namespace norvik;

namespace {

class SettingsFormTest : public SettingsTestDatabase {
protected:
    testsupport::ScriptedDialogs Dialogs;
    QPointer<TSettingsForm> Form;
    int UpdateChecks = 0;

    void TearDown() override {
        delete Form.data();
        SettingsTestDatabase::TearDown();
    }

    TSettingsForm& Open() {
        Form = OpenSettings([this] { return Data.GetConnection(); }, [this] { ++UpdateChecks; });
        EXPECT_NE(Form.data(), nullptr);
        Form->resize(1000, 660);
        Form->show();
        return *Form;
    }

    template <class T> T& Child(const char* AName) {
        T* child = Form->findChild<T*>(QString::fromLatin1(AName));
        if (!child)
            throw std::logic_error(std::string("no control ") + AName);
        return *child;
    }
    QLineEdit& Edit(const char* AName) { return Child<QLineEdit>(AName); }
    QAbstractButton& Button(const char* AName) { return Child<QAbstractButton>(AName); }
    void Click(const char* AName) { QTest::mouseClick(&Button(AName), Qt::LeftButton); }
    bool Enabled(const char* AName) { return Button(AName).isEnabled(); }
    QString ShownName() { return Edit("edtTPTZusatzText1").text(); }
    QString Position() { return Child<QLabel>("lblTPTPosition").text(); }

    void TypeName(const QString& AText) {
        QLineEdit& edit = Edit("edtTPTZusatzText1");
        edit.setFocus();
        QTest::keyClicks(&edit, AText);
    }
    void ClearName() {
        QLineEdit& edit = Edit("edtTPTZusatzText1");
        edit.selectAll();
        QTest::keyClick(&edit, Qt::Key_Backspace);
    }

    // the page has closed and freed itself
    bool Closed() {
        return QTest::qWaitFor([this] { return Form.isNull(); }, 2000);
    }
};

TEST_F(SettingsFormTest, ThePageCarriesItsTitleAndDescription) {
    Open();
    EXPECT_EQ(Child<QLabel>("lblTitle").text(), u"Einstellungen");
    EXPECT_EQ(Child<QLabel>("lblDescription").text(),
              u"Ändern Sie hier die Einstellungen für den Export / Versand der Dokumente.");
    EXPECT_EQ(Button("cmdCancel").text(), u"Abbrechen");
    EXPECT_EQ(Button("cmdFinish").text(), u"Fertigstellen");
    EXPECT_EQ(Button("cmdSaveTemplate").text(), u"Musterdokument speichern ...");
    EXPECT_EQ(Button("chkAutoOpen").text(), u"Dokument nach dem Speichern öffnen");
    EXPECT_EQ(Button("cmdCheckUpdate").text(), u"Auf Programmupdate prüfen");
}

TEST_F(SettingsFormTest, TheTemplateHintsAreRichTextWithTheirThreeSteps) {
    Open();
    const QLabel& hints = Child<QLabel>("HTMLabel3");
    EXPECT_EQ(hints.textFormat(), Qt::RichText);
    QTextDocument document;
    document.setHtml(hints.text());
    const QString text = document.toPlainText();
    for (const QString& words :
         {QStringLiteral(
              "Hinweise zur Verwendung der Vorlage:\nUm eine eigene Vorlage zu erstellen, führen Sie "
              "bitte folgende Schritte aus:"),
          QStringLiteral("Speichern Sie das Musterdokument"),
          QStringLiteral("Öffnen Sie das erstellte Dokument und passen es an"),
          QStringLiteral("Tragen Sie das angepasste Dokument bei \"Rückmeldebogen Vorlage\" ein")})
        EXPECT_TRUE(text.contains(words)) << words.toStdString() << " in " << text.toStdString();
}

TEST_F(SettingsFormTest, AnEmptyTableShowsOneBlankTherapistAndNextWaitsForAName) {
    Open();
    EXPECT_EQ(ShownName(), QString());
    EXPECT_EQ(Position(), u"Therapeut 1 von 1");
    EXPECT_FALSE(Enabled("cmdPrev"));
    EXPECT_FALSE(Enabled("cmdNext"));
    EXPECT_FALSE(Enabled("cmdRemove"));
    TypeName(QStringLiteral("Anna"));
    EXPECT_TRUE(Enabled("cmdNext"));
    EXPECT_FALSE(Enabled("cmdRemove"));
    // the name went into the therapist while it was typed
    EXPECT_EQ(Form->Preferences().TPTs().first()->GetAsString(QStringLiteral("TPTZusatzText1")), u"Anna");
    ClearName();
    EXPECT_FALSE(Enabled("cmdNext"));
}

TEST_F(SettingsFormTest, AnEmptyNameIsMarkedButHoldsNothingBack) {
    Open();
    auto& edit = Child<TnvValidatedEdit>("edtTPTZusatzText1");
    edit.Validate();
    EXPECT_TRUE(edit.ErrorShown());
    EXPECT_EQ(edit.ErrorText(), u"Der Wert darf nicht leer bleiben.");
    TypeName(QStringLiteral("Anna"));
    edit.Validate();
    EXPECT_FALSE(edit.ErrorShown());
}

// the mark's button would stand in the edit although no check had failed
TEST_F(SettingsFormTest, AStoredNameShowsNoErrorMark) {
    AddTherapist(QStringLiteral("Anna"));
    Open();
    QTest::qWait(20);
    for (const QWidget* part : Edit("edtTPTZusatzText1").findChildren<QWidget*>())
        EXPECT_FALSE(part->isVisible()) << part->metaObject()->className();
}

TEST_F(SettingsFormTest, NextOnTheSoleTherapistAsksEachTimeAndUpsNeinChangesNothing) {
    AddTherapist(QStringLiteral("Anna"), QStringLiteral("Physiotherapeutin"));
    Open();
    Dialogs.AnswerChoice(1);
    Dialogs.AnswerChoice(1);
    Click("cmdNext");
    Click("cmdNext");
    EXPECT_EQ(Dialogs.Texts(QStringLiteral("choice")),
              QStringList(2, QStringLiteral("Möchten Sie mehr als einen Therapeuten einrichten?")));
    EXPECT_EQ(ShownName(), u"Anna");
    EXPECT_EQ(Edit("edtTPTZusatzText2").text(), u"Physiotherapeutin");
    EXPECT_EQ(Position(), u"Therapeut 1 von 1");
    EXPECT_FALSE(Enabled("cmdRemove"));

    Dialogs.AnswerChoice(0);
    Click("cmdNext");
    EXPECT_EQ(ShownName(), QString());
    EXPECT_EQ(Position(), u"Therapeut 2 von 2");
    EXPECT_TRUE(Enabled("cmdPrev"));
    EXPECT_FALSE(Enabled("cmdNext"));
    EXPECT_TRUE(Enabled("cmdRemove"));
}

TEST_F(SettingsFormTest, RemovingShowsTheTherapistThatMovedUpOrTheOneBefore) {
    for (const char* name : {"Anna", "Bert", "Carla", "Dora"})
        AddTherapist(QString::fromLatin1(name));
    Open();
    Click("cmdNext");
    Click("cmdRemove");
    EXPECT_EQ(ShownName(), u"Carla");
    EXPECT_EQ(Position(), u"Therapeut 2 von 3");
    Click("cmdNext");
    EXPECT_EQ(ShownName(), u"Dora");
    Click("cmdRemove");
    EXPECT_EQ(ShownName(), u"Carla");
    EXPECT_EQ(Position(), u"Therapeut 2 von 2");
    EXPECT_TRUE(Dialogs.Messages().isEmpty());
}

TEST_F(SettingsFormTest, FinishWithATrailingBlankTherapistWritesNoRowForIt) {
    Open();
    TypeName(QStringLiteral("Anna"));
    Dialogs.AnswerChoice(0);
    Click("cmdNext");
    ASSERT_EQ(Position(), u"Therapeut 2 von 2");
    Click("cmdFinish");
    EXPECT_TRUE(Closed());
    EXPECT_EQ(TherapistNames(), QStringList{QStringLiteral("Anna")});
}

TEST_F(SettingsFormTest, ANameOfBlanksLetsNextOnButIsNotWrittenForANewTherapist) {
    Open();
    TypeName(QStringLiteral("   "));
    EXPECT_TRUE(Enabled("cmdNext"));
    Click("cmdFinish");
    EXPECT_TRUE(Closed());
    EXPECT_TRUE(TherapistRows().isEmpty());
}

TEST_F(SettingsFormTest, CancelAfterRemovingLeavesTheTableUntouched) {
    AddTherapist(QStringLiteral("Anna"));
    AddTherapist(QStringLiteral("Bert"));
    StoreDaMe({QStringLiteral("/srv/out"), {}, {}});
    const QStringList before = TherapistRows();
    Open();
    Click("cmdRemove");
    QTest::keyClicks(&Edit("edtExportFolder"), QStringLiteral("/anders"));
    Click("cmdCancel");
    EXPECT_TRUE(Closed());
    EXPECT_EQ(TherapistRows(), before);
    EXPECT_EQ(StoredDaMe().ExportFolder, u"/srv/out");
    EXPECT_EQ(TSettingsForm::Instance(), nullptr);
}

TEST_F(SettingsFormTest, FinishAfterRemovingDeletesTheRow) {
    AddTherapist(QStringLiteral("Anna"));
    AddTherapist(QStringLiteral("Bert"));
    Open();
    Click("cmdRemove");
    Click("cmdFinish");
    EXPECT_TRUE(Closed());
    EXPECT_EQ(TherapistNames(), QStringList{QStringLiteral("Bert")});
}

TEST_F(SettingsFormTest, FinishWritesEditedTherapistsAndTheDaMeBlock) {
    const qint64 anna = AddTherapist(QStringLiteral("Anna"));
    testsupport::TempDir outbox;
    Open();
    QTest::keyClicks(&Edit("edtTPTDaMeCode"), QStringLiteral("MEANNA"));
    Dialogs.AnswerFile(outbox.path());
    Click("cmdExportFolder");
    EXPECT_EQ(Edit("edtExportFolder").text(), outbox.path());
    QTest::keyClicks(&Edit("edtExecutable"), QStringLiteral("/opt/dame/send.sh"));
    QTest::keyClicks(&Edit("edtDOCXTemplate"), QStringLiteral("/home/praxis/vorlage.docx"));
    Click("cmdFinish");
    EXPECT_TRUE(Closed());
    EXPECT_EQ(TherapistRows(), QStringList{QString::number(anna) + QStringLiteral("|Anna|||MEANNA")});
    EXPECT_EQ(StoredDaMe(), (TDaMeSettings{outbox.path(), QStringLiteral("/opt/dame/send.sh"),
                                           QStringLiteral("/home/praxis/vorlage.docx")}));
}

TEST_F(SettingsFormTest, TheStoredDaMeBlockIsShown) {
    StoreDaMe({QStringLiteral("/srv/out"), QStringLiteral("/opt/send.exe"), QStringLiteral("/srv/v.docx")});
    Open();
    EXPECT_EQ(Edit("edtExportFolder").text(), u"/srv/out");
    EXPECT_EQ(Edit("edtExecutable").text(), u"/opt/send.exe");
    EXPECT_EQ(Edit("edtDOCXTemplate").text(), u"/srv/v.docx");
}

TEST_F(SettingsFormTest, TheFolderPickerStartsAtTheShownFolderAndCancelKeepsIt) {
    StoreDaMe({QStringLiteral("/srv/out"), {}, {}});
    Open();
    Click("cmdExportFolder");
    ASSERT_EQ(Dialogs.FileRequests().size(), 1);
    EXPECT_EQ(Dialogs.FileRequests().first().Directory, u"/srv/out");
    EXPECT_EQ(Edit("edtExportFolder").text(), u"/srv/out");
}

struct PickCase {
    const char* Name;
    const char* Button;
    const char* Edit;
    QStringList Filters;
    const char* Suffix;
};

class FilePickTest : public SettingsFormTest, public ::testing::WithParamInterface<PickCase> {};

// both open dialogs take only existing files
TEST_P(FilePickTest, AsksForAnExistingFileWithItsFiltersAndFillsTheEdit) {
    const PickCase& c = GetParam();
    Open();
    Dialogs.AnswerFile(QStringLiteral("/srv/gewählt/datei"));
    Click(c.Button);
    ASSERT_EQ(Dialogs.FileRequests().size(), 1);
    const TFileDialogRequest& request = Dialogs.FileRequests().first();
    EXPECT_EQ(request.Filters, c.Filters);
    EXPECT_EQ(request.DefaultSuffix, QString::fromLatin1(c.Suffix));
    EXPECT_TRUE(request.MustExist);
    EXPECT_EQ(Edit(c.Edit).text(), u"/srv/gewählt/datei");
    // a cancelled dialog keeps the value
    Click(c.Button);
    EXPECT_EQ(Edit(c.Edit).text(), u"/srv/gewählt/datei");
    EXPECT_EQ(Dialogs.FileRequests().last().Directory, u"/srv/gewählt");
}

const QStringList DocxFilters{QStringLiteral("Open XML Word Dokumente (*.docx)"),
                              QStringLiteral("Alle Dateien (*.*)")};

INSTANTIATE_TEST_SUITE_P(Pickers, FilePickTest,
                         ::testing::Values(PickCase{"Executable",
                                                    "cmdExecutable",
                                                    "edtExecutable",
                                                    {QStringLiteral("Ausführbare Dateien (*.exe)"),
                                                     QStringLiteral("Commandezeilen Dateien (*.bat *.cmd)")},
                                                    "exe"},
                                           PickCase{"Template", "cmdDOCXTemplate", "edtDOCXTemplate",
                                                    DocxFilters, "docx"}),
                         [](const auto& AInfo) { return std::string(AInfo.param.Name); });

QByteArray FileBytes(const QString& APath) {
    QFile file(APath);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

TEST_F(SettingsFormTest, SavingTheSampleWritesTheBuiltInTemplateAndFillsAnEmptyTemplateField) {
    testsupport::TempDir dir;
    const QString path = dir.filePath(QStringLiteral("Muster.docx"));
    Open();
    Dialogs.AnswerFile(path);
    Click("cmdSaveTemplate");
    ASSERT_EQ(Dialogs.FileRequests().size(), 1);
    const TFileDialogRequest& request = Dialogs.FileRequests().first();
    EXPECT_EQ(request.Filters, DocxFilters);
    EXPECT_EQ(request.DefaultSuffix, u"docx");
    EXPECT_TRUE(request.ConfirmOverwrite);
    EXPECT_EQ(FileBytes(path), BuiltInResources::feedbackTemplate());
    EXPECT_EQ(Edit("edtDOCXTemplate").text(), path);
    EXPECT_TRUE(Dialogs.OpenedWithDesktop().isEmpty());
}

TEST_F(SettingsFormTest, SavingTheSampleKeepsAChosenTemplateAndOpensTheFileIfAsked) {
    testsupport::TempDir dir;
    const QString path = dir.filePath(QStringLiteral("Muster.docx"));
    StoreDaMe({{}, {}, QStringLiteral("/srv/eigene.docx")});
    Open();
    Child<QCheckBox>("chkAutoOpen").setChecked(true);
    Dialogs.AnswerFile(path);
    Click("cmdSaveTemplate");
    EXPECT_EQ(FileBytes(path), BuiltInResources::feedbackTemplate());
    EXPECT_EQ(Edit("edtDOCXTemplate").text(), u"/srv/eigene.docx");
    EXPECT_EQ(Dialogs.OpenedWithDesktop(), QStringList{path});
}

TEST_F(SettingsFormTest, ASampleThatCannotBeWrittenIsReportedAndChangesNothing) {
    testsupport::TempDir dir;
    Open();
    Child<QCheckBox>("chkAutoOpen").setChecked(true);
    Dialogs.AnswerFile(dir.filePath(QStringLiteral("fehlt/Muster.docx")));
    Click("cmdSaveTemplate");
    ASSERT_EQ(Dialogs.Texts(QStringLiteral("error")).size(), 1);
    EXPECT_TRUE(Dialogs.Texts(QStringLiteral("error"))
                    .first()
                    .startsWith(u"Das Musterdokument konnte nicht gespeichert werden:"));
    EXPECT_EQ(Edit("edtDOCXTemplate").text(), QString());
    EXPECT_TRUE(Dialogs.OpenedWithDesktop().isEmpty());
}

TEST_F(SettingsFormTest, ADatabaseFailureOnFinishIsShownAndThePageStaysOpen) {
    Open();
    TypeName(QStringLiteral("Anna"));
    Conn().PSExecuteStatement(QStringLiteral("ALTER TABLE tblTherapeuten RENAME TO tblTherapeutenAway"));
    Click("cmdFinish");
    QTest::qWait(50);
    Conn().PSExecuteStatement(QStringLiteral("ALTER TABLE tblTherapeutenAway RENAME TO tblTherapeuten"));
    ASSERT_FALSE(Form.isNull());
    EXPECT_EQ(Dialogs.Texts(QStringLiteral("error")).size(), 1);
    EXPECT_EQ(TSettingsForm::Instance(), Form.data());
    // once the database is back, Finish succeeds
    Click("cmdFinish");
    EXPECT_TRUE(Closed());
    EXPECT_EQ(TherapistNames(), QStringList{QStringLiteral("Anna")});
}

TEST_F(SettingsFormTest, TheUpdateButtonRunsTheGivenCheck) {
    Open();
    Click("cmdCheckUpdate");
    EXPECT_EQ(UpdateChecks, 1);
    Form = OpenSettings([this] { return Data.GetConnection(); }, {});
    Click("cmdCheckUpdate");
    EXPECT_EQ(UpdateChecks, 1);
}

TEST_F(SettingsFormTest, OneSettingsPageAtATimeAndANewOneAfterClosing) {
    TSettingsForm& first = Open();
    TypeName(QStringLiteral("ungespeichert"));
    EXPECT_EQ(OpenSettings([this] { return Data.GetConnection(); }, {}), &first);
    // opened again, it shows what is stored
    EXPECT_EQ(ShownName(), QString());
    first.close();
    EXPECT_EQ(TSettingsForm::Instance(), nullptr);
    EXPECT_TRUE(Closed());
    Open();
    EXPECT_NE(Form.data(), nullptr);
    EXPECT_EQ(TSettingsForm::Instance(), Form.data());
}

TEST_F(SettingsFormTest, WithoutADatabaseNoPageOpensAndTheReasonIsShown) {
    QPointer<TSettingsForm> form = OpenSettings([] { return nullptr; }, {});
    EXPECT_TRUE(form.isNull());
    EXPECT_EQ(Dialogs.Texts(QStringLiteral("error")),
              QStringList{QStringLiteral("Die Datenbank konnte nicht geöffnet werden.")});
    EXPECT_TRUE(QTest::qWaitFor([] { return TSettingsForm::Instance() == nullptr; }, 2000));
}

TEST_F(SettingsFormTest, TheMainWindowOpensThisPageWhileTheOutboxIsNotSet) {
    QPointer<TMainForm> main = new TMainForm(Data);
    ASSERT_EQ(main->Pages().size(), 2);
    Form = qobject_cast<TSettingsForm*>(main->Pages().last());
    ASSERT_FALSE(Form.isNull());
    testsupport::TempDir outbox;
    QTest::keyClicks(&Edit("edtExportFolder"), outbox.path());
    Click("cmdFinish");
    EXPECT_TRUE(Closed());
    EXPECT_EQ(main->Pages().size(), 1);
    EXPECT_TRUE(main->ExportFolderExists());
    delete main.data();
}

// The new therapist that "Nächster >" adds is typed in at once: the cursor stands in its name,
// not in the outbox folder that the button, now grey, would hand the focus to.
TEST_F(SettingsFormTest, NextToANewTherapistPutsTheCursorIntoItsName) {
    Open();
    QApplication::setActiveWindow(Form);
    ASSERT_TRUE(QTest::qWaitForWindowActive(Form));
    TypeName(QStringLiteral("Anna Alt"));
    Dialogs.AnswerChoice(0);
    Button("cmdNext").setFocus();
    QTest::keyClick(&Button("cmdNext"), Qt::Key_Space);
    ASSERT_EQ(Position(), u"Therapeut 2 von 2");
    EXPECT_EQ(QApplication::focusWidget(), &Edit("edtTPTZusatzText1"));
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("Bert Berger"));
    EXPECT_EQ(ShownName(), u"Bert Berger");
    EXPECT_TRUE(Edit("edtExportFolder").text().isEmpty());
}

struct SettingsKeyCase {
    const char* Name;
    Qt::Key Key;
    bool Writes;
};

class SettingsKeyTest : public SettingsFormTest, public ::testing::WithParamInterface<SettingsKeyCase> {};

// Escape is "Abbrechen" and Enter "Fertigstellen", also from within an edit.
TEST_P(SettingsKeyTest, EscapeCancelsAndEnterFinishes) {
    Open();
    testsupport::TempDir outbox;
    QTest::keyClicks(&Edit("edtExportFolder"), outbox.path());
    QTest::keyClick(&Edit("edtExportFolder"), GetParam().Key);
    EXPECT_TRUE(Closed());
    EXPECT_EQ(StoredDaMe().ExportFolder, GetParam().Writes ? outbox.path() : QString());
}

INSTANTIATE_TEST_SUITE_P(Keys, SettingsKeyTest,
                         ::testing::Values(SettingsKeyCase{"Escape", Qt::Key_Escape, false},
                                           SettingsKeyCase{"Return", Qt::Key_Return, true},
                                           SettingsKeyCase{"Enter", Qt::Key_Enter, true}),
                         [](const auto& AInfo) { return std::string(AInfo.param.Name); });

// Enter on a focused button presses that button and does not finish the page.
TEST_F(SettingsFormTest, EnterOnAFocusedButtonPressesThatButton) {
    AddTherapist(QStringLiteral("Anna Alt"), QStringLiteral("Physiotherapeutin"));
    AddTherapist(QStringLiteral("Bert Berger"), QStringLiteral("Masseur"));
    Open();
    QTest::keyClick(&Button("cmdNext"), Qt::Key_Return);
    EXPECT_EQ(ShownName(), u"Bert Berger");
    EXPECT_FALSE(Form.isNull());
}

// The settings page as the first start shows it in the smallest main window: the cursor in
// the therapist's name, and the groups one under the other with no sideways scrolling.
TEST_F(SettingsFormTest, TheSmallestMainWindowShowsTheGroupsOneUnderTheOther) {
    QPointer<TMainForm> main = new TMainForm(Data);
    main->show();
    QApplication::setActiveWindow(main);
    ASSERT_TRUE(QTest::qWaitForWindowActive(main));
    Form = qobject_cast<TSettingsForm*>(main->Pages().last());
    ASSERT_FALSE(Form.isNull());
    EXPECT_TRUE(
        QTest::qWaitFor([this] { return QApplication::focusWidget() == &Edit("edtTPTZusatzText1"); }));
    auto* scroller = Form->findChild<QScrollArea*>();
    ASSERT_NE(scroller, nullptr);
    EXPECT_FALSE(scroller->horizontalScrollBar()->isVisible());
    const QStringList order = {QStringLiteral("grpTherapists"), QStringLiteral("grpDaMe"),
                               QStringLiteral("grpTemplate"), QStringLiteral("grpUpdate")};
    for (int index = 1; index < order.size(); ++index)
        EXPECT_LT(Child<QWidget>(order.at(index - 1).toLatin1().constData()).y(),
                  Child<QWidget>(order.at(index).toLatin1().constData()).y())
            << order.at(index).toStdString();
    // wide enough again, the template stands beside the therapists
    main->resize(1000, 700);
    QCoreApplication::processEvents();
    EXPECT_EQ(Child<QWidget>("grpTemplate").y(), Child<QWidget>("grpTherapists").y());
    delete main.data();
}

// The page as it stands in the main window with two therapists; ORVENNA_SHOTS_DIR keeps a picture.
TEST_F(SettingsFormTest, ThePageFitsAMainWindowWithTwoTherapists) {
    AddTherapist(QStringLiteral("Anna Alt"), QStringLiteral("Physiotherapeutin"), QStringLiteral("63"),
                 QStringLiteral("MEANNA"));
    AddTherapist(QStringLiteral("Bert Berger"), QStringLiteral("Masseur"), QStringLiteral("64"),
                 QStringLiteral("MEBERT"));
    StoreDaMe({QStringLiteral("/srv/dame/outbox"), {}, QStringLiteral("/home/praxis/Rueckmeldung.docx")});
    QPointer<TMainForm> main = new TMainForm(Data);
    main->resize(1000, 700);
    main->show();
    Form = qobject_cast<TSettingsForm*>(main->Pages().last());
    ASSERT_FALSE(Form.isNull());
    QTest::qWait(50);
    // nothing of the page lies outside the part that shows without scrolling
    for (QWidget* group : Form->findChildren<QWidget*>(QRegularExpression(QStringLiteral("^grp")))) {
        const QRect shown = QRect(group->mapTo(Form.data(), QPoint(0, 0)), group->size());
        EXPECT_TRUE(Form->rect().contains(shown)) << group->objectName().toStdString();
    }
    const QPixmap picture = main->grab();
    EXPECT_FALSE(picture.isNull());
    const QString folder = qEnvironmentVariable("ORVENNA_SHOTS_DIR");
    if (!folder.isEmpty())
        picture.save(QDir(folder).filePath(QStringLiteral("settings.png")));
    delete main.data();
}

} // namespace
