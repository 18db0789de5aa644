#include "NamedMessages.h"
#include "Scaling.h"
#include "TOptionalDateEdit.h"
#include "TPrintLayoutView.h"
#include "TnvNamedMessageEvent.h"
#include "TnvValidatedEdit.h"
#include "WizardFormFixture.h"

#include <QAction>
#include <QApplication>
#include <QCalendarWidget>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QTest>
#include <QToolButton>
#include <algorithm>

using norvik::Scale;
using norvik::TnvValidatedEdit;

namespace {

class WizardFormTest : public WizardFormFixture {
protected:
    QString Caption() { return Child<QLabel>(QStringLiteral("lblCaptions")).text(); }
    QWidget* Focused() { return QApplication::focusWidget(); }
    TnvValidatedEdit& Checked(const QString& AName) { return Child<TnvValidatedEdit>(AName); }
    TOptionalDateEdit& DateEdit(const QString& AName) { return Child<TOptionalDateEdit>(AName); }
    // leaves the field as the user does, with the tab key
    void Leave(const QString& AName) { QTest::keyClick(&Child<QWidget>(AName), Qt::Key_Tab); }
};

TEST_F(WizardFormTest, EachPageShowsItsTitleAndTheNavigatorFollows) {
    Open();
    EXPECT_EQ(Form->ActivePageIndex(), 0);
    EXPECT_TRUE(Caption().contains(QStringLiteral("Patientendaten")));
    EXPECT_TRUE(
        Caption().contains(QStringLiteral("Füllen Sie hier die Patientendaten aus. Diese werden auf dem "
                                          "Ausdruck des Rückmeldebogens verwendet.")));
    EXPECT_FALSE(Enabled(QStringLiteral("cmdBack")));
    EXPECT_FALSE(Enabled(QStringLiteral("cmdNext"))) << "nothing is filled in yet";
    EXPECT_TRUE(Visible(QStringLiteral("cmdNext")));
    EXPECT_FALSE(Visible(QStringLiteral("cmdFinish")));

    TypePatient();
    EXPECT_TRUE(Enabled(QStringLiteral("cmdNext")));
    Next();
    EXPECT_EQ(Form->ActivePageIndex(), 1);
    EXPECT_TRUE(Caption().contains(QStringLiteral("Überweiser / Überweisung")));
    EXPECT_TRUE(Caption().contains(QStringLiteral("die wichgsten Daten der Überweisung aus.")));
    EXPECT_TRUE(Enabled(QStringLiteral("cmdBack")));
    EXPECT_FALSE(Enabled(QStringLiteral("cmdNext")));

    Click(QStringLiteral("cmdBack"));
    EXPECT_EQ(Form->ActivePageIndex(), 0);
    EXPECT_EQ(Edit(QStringLiteral("edtPATLastname")).text(), QStringLiteral("Muster"));
    Next();
    TypeReferral();
    Next();
    EXPECT_TRUE(Caption().contains(QStringLiteral("Rückmeldung")));
    EXPECT_TRUE(Enabled(QStringLiteral("cmdNext"))) << "no answer is required";
    Next();
    EXPECT_TRUE(Caption().contains(QStringLiteral("Export, Druck oder Versand")));
    EXPECT_FALSE(Visible(QStringLiteral("cmdNext")));
    EXPECT_TRUE(Visible(QStringLiteral("cmdFinish")));
    EXPECT_TRUE(Enabled(QStringLiteral("cmdFinish")));
    EXPECT_TRUE(Child<QAction>(QStringLiteral("acFinish")).isEnabled());
    EXPECT_FALSE(Child<QAction>(QStringLiteral("acNext")).isEnabled());
}

TEST_F(WizardFormTest, ThePageControlsCarryTheirHints) {
    struct Hint {
        const char* Name;
        const char* Text;
    };
    const Hint hints[] = {
        {"edtPATSearch", "Schnellsuche Patient"},
        {"edtPATLastname", "Nachname"},
        {"edtPATFirstname", "Vorname"},
        {"edtPATStreet", "Straße, Hausnummer"},
        {"edtPATZIPCity", "PLZ und Ortsname"},
        {"edtPATSVNr", "SVNr (10-stellig)"},
        {"edtPATAssurance", "Versicherung"},
        {"edtADRSearch", "Schnellsuche Arzt"},
        {"edtDOCName", "Name (Vorname + Nachname oder Institutsname)"},
        {"edtDOCStreet", "Straße, Hausnummer"},
        {"edtDOCZIPCity", "PLZ und Ortsname"},
        {"edtDOCMailbox", "Mailboxadresse (ME123456)"},
        {"edtDOCSalutation", "Direkte Anrede"},
        {"edtTHPDiagnosis", "Diagnose"},
        {"edtTHPStart", "Behandlung Start"},
        {"edtTHPEnd", "Behandlung Ende"},
        {"edtTHPTherapist", "Name Therapeut(in)"},
        {"edtTHPTherapistExtension", "Berufsbezeichnung Therapeut(in)"},
        {"edtTHPTherapistField", "Fachgebiet Therapeut (63)"},
        {"edtTHPTherapistMailbox", "Mailboxadresse Therapeut"},
    };
    Open();
    for (const Hint& hint : hints)
        EXPECT_EQ(Edit(QString::fromUtf8(hint.Name)).placeholderText(), QString::fromUtf8(hint.Text))
            << hint.Name;
    const Hint comboHints[] = {{"edtPATGender", "Geschlecht"},
                               {"edtPATTitle1", "Titel vorang."},
                               {"edtPATTitle2", "Titel nachgest."}};
    for (const Hint& hint : comboHints) {
        auto& box = Child<QComboBox>(QString::fromUtf8(hint.Name));
        EXPECT_EQ(box.lineEdit()->placeholderText(), QString::fromUtf8(hint.Text)) << hint.Name;
        EXPECT_TRUE(box.isEditable());
        EXPECT_EQ(box.currentIndex(), -1) << "nothing is selected at the start";
    }
    auto& gender = Child<QComboBox>(QStringLiteral("edtPATGender"));
    EXPECT_EQ(gender.itemText(0), QStringLiteral("Männlich"));
    EXPECT_EQ(gender.itemText(2), QStringLiteral("Unbestimmt"));
    EXPECT_EQ(Child<QComboBox>(QStringLiteral("edtPATTitle2")).itemText(4), QStringLiteral("Mag.(FH)"));
    EXPECT_TRUE(Edit(QStringLiteral("edtDOCSalutation")).isHidden());
    EXPECT_FALSE(Child<QAction>(QStringLiteral("edtDOCMailboxButton")).isVisible());
    QLineEdit& mailbox = Edit(QStringLiteral("edtDOCMailbox"));
    for (const QToolButton* button : mailbox.findChildren<QToolButton*>())
        EXPECT_FALSE(button->isVisibleTo(&mailbox)) << "the mailbox shows no button";
    EXPECT_EQ(Child<QToolButton>(QStringLiteral("cmdChangeADRSearchProvider")).toolTip(),
              QStringLiteral("Ärztestamm von DaMe laden - dies kann etwas dauern."));
    for (const char* text : {"Patientendaten", "Versicherungsdaten", "Überweiser", "Überweisung Daten",
                             "Therapeut(in)", "Anmerkungen"}) {
        bool found = false;
        for (const QLabel* label : Form->findChildren<QLabel*>())
            found = found || label->text() == QString::fromUtf8(text);
        EXPECT_TRUE(found) << text;
    }
}

struct SVNrCase {
    const char* Number;
    bool Valid;
};

class WizardSVNrTest : public WizardFormTest, public testing::WithParamInterface<SVNrCase> {};

TEST_P(WizardSVNrTest, OnlyAValidNumberLetsTheUserGoOn) {
    Open();
    TypePatient(QString::fromUtf8(GetParam().Number));
    EXPECT_EQ(Enabled(QStringLiteral("cmdNext")), GetParam().Valid);

    Leave(QStringLiteral("edtPATSVNr"));
    EXPECT_NE(Focused(), &Edit(QStringLiteral("edtPATSVNr"))) << "a wrong number never holds the focus";
    auto& edit = Checked(QStringLiteral("edtPATSVNr"));
    EXPECT_EQ(edit.ErrorShown(), !GetParam().Valid);
    EXPECT_EQ(edit.ErrorText(), GetParam().Valid ? QString()
                                                 : QStringLiteral("Die SVNr ist syntaktisch falsch. Bitte "
                                                                  "kontrollieren Sie die Nummer."));
    QTest::keyClick(&edit, Qt::Key_Return);
    EXPECT_EQ(Form->ActivePageIndex(), GetParam().Valid ? 1 : 0) << "Enter presses Weiter when it may";
}

INSTANTIATE_TEST_SUITE_P(Numbers, WizardSVNrTest,
                         testing::Values(SVNrCase{"1238150580", true}, SVNrCase{"0000150580", true},
                                         SVNrCase{"1232310280", true}, SVNrCase{"1234011380", true},
                                         SVNrCase{"1234150580", false}, SVNrCase{"123815058", false},
                                         SVNrCase{"1238150580 ", false}, SVNrCase{"abcdefghij", false},
                                         SVNrCase{"1238151680", false}));

TEST_F(WizardFormTest, AnEmptyAddressIsMarkedButLetsTheUserGoOn) {
    Open();
    TypePatient();
    Next();
    TypeReferral();
    Edit(QStringLiteral("edtDOCStreet")).clear();
    Edit(QStringLiteral("edtDOCStreet")).setFocus();
    Leave(QStringLiteral("edtDOCStreet"));
    EXPECT_TRUE(Checked(QStringLiteral("edtDOCStreet")).ErrorShown());
    EXPECT_EQ(Checked(QStringLiteral("edtDOCStreet")).ErrorText(),
              QStringLiteral("Der Wert darf nicht leer bleiben."));
    EXPECT_TRUE(Enabled(QStringLiteral("cmdNext")));

    Edit(QStringLiteral("edtDOCMailbox")).clear();
    EXPECT_FALSE(Enabled(QStringLiteral("cmdNext"))) << "the mailbox is required";
}

TEST_F(WizardFormTest, TheDateEditsTakeTypedAndPickedDatesAndMayBeEmpty) {
    Open();
    TypePatient();
    Next();
    TypeReferral();
    auto& start = DateEdit(QStringLiteral("edtTHPStart"));
    start.clear();
    Type(QStringLiteral("edtTHPStart"), QStringLiteral("1.2.26"));
    Leave(QStringLiteral("edtTHPStart"));
    EXPECT_EQ(start.text(), QStringLiteral("01.02.2026"));
    EXPECT_EQ(TFeedbackWizardState::DateDisplayText(Form->State().edtTHPStart), QStringLiteral("01.02.2026"));
    EXPECT_TRUE(Enabled(QStringLiteral("cmdNext")));

    start.clear();
    Type(QStringLiteral("edtTHPStart"), QStringLiteral("kein Datum"));
    Leave(QStringLiteral("edtTHPStart"));
    EXPECT_EQ(start.text(), QStringLiteral("kein Datum")) << "what was typed stays";
    EXPECT_TRUE(Form->State().edtTHPStart.isNull());
    EXPECT_TRUE(start.ErrorShown());
    EXPECT_FALSE(Enabled(QStringLiteral("cmdNext")));

    start.ShowCalendar();
    ASSERT_TRUE(start.Calendar()->isVisible());
    Q_EMIT start.Calendar()->clicked(QDate(2026, 3, 2));
    EXPECT_FALSE(start.Calendar()->isVisible());
    EXPECT_EQ(start.text(), QStringLiteral("02.03.2026"));
    EXPECT_FALSE(start.ErrorShown());
    EXPECT_TRUE(Enabled(QStringLiteral("cmdNext")));
}

TEST_F(WizardFormTest, TheCataloguePageStandsWhereTheCataloguePutsIt) {
    Open(QString(), QStringLiteral(R"({"presets":{"q02":"02"}})"));
    auto& scroll = Child<QScrollArea>(QStringLiteral("scrQuestions"));
    const QList<QComboBox*> boxes = scroll.widget()->findChildren<QComboBox*>(Qt::FindDirectChildrenOnly);
    ASSERT_EQ(boxes.size(), 7);
    QComboBox* first = Form->FirstQuestionField();
    ASSERT_EQ(first, boxes[0]);
    EXPECT_EQ(first->pos(), QPoint(Scale(32), Scale(31)));
    EXPECT_EQ(first->width(), Scale(345 - 32));
    EXPECT_EQ(first->lineEdit()->placeholderText(), QStringLiteral("Beschwerdesymptomatik"));
    EXPECT_EQ(first->toolTip(), QStringLiteral("Beschwerdesymptomatik"));
    EXPECT_TRUE(first->isEditable());
    const QLabel* heading = nullptr;
    for (const QLabel* label : scroll.widget()->findChildren<QLabel*>())
        if (label->text() == u"Behandlungsergebnis")
            heading = label;
    ASSERT_NE(heading, nullptr);
    EXPECT_EQ(heading->pos(), QPoint(0, Scale(4)));
    EXPECT_EQ(boxes[4]->lineEdit()->placeholderText(), QStringLiteral("Compliance"));
    EXPECT_EQ(boxes[4]->currentText(), QStringLiteral("gut")) << "the preset chose its answer";

    TypePatient();
    Next();
    TypeReferral();
    Next();
    TypeInto(*boxes[5], QStringLiteral("nach Rücksprache"));
    const TAnswerBox& typed = Form->State().FCatalogue.Boxes().at(5);
    EXPECT_EQ(typed.Text, QStringLiteral("nach Rücksprache"));
    EXPECT_EQ(typed.ItemIndex, -1);
    auto& memo = Child<QPlainTextEdit>(QStringLiteral("memContent"));
    EXPECT_GT(memo.mapTo(Form, QPoint()).y(), scroll.mapTo(Form, QPoint()).y() + scroll.height() - 1);
}

TEST_F(WizardFormTest, EachPageGivesTheFocusToItsFirstField) {
    Open();
    const auto focusGoesTo = [this](QWidget* AControl) {
        return WaitFor([this, AControl] { return Focused() == AControl; });
    };
    EXPECT_TRUE(focusGoesTo(&Edit(QStringLiteral("edtPATSearch"))));
    TypePatient();
    Next();
    EXPECT_TRUE(focusGoesTo(&Edit(QStringLiteral("edtADRSearch"))));
    TypeReferral();
    Next();
    EXPECT_TRUE(focusGoesTo(Form->FirstQuestionField()));

    Click(QStringLiteral("cmdBack"));
    Click(QStringLiteral("cmdChangeADRSearchProvider"));
    EXPECT_EQ(Focused(), &Edit(QStringLiteral("edtADRSearch")));
}

TEST_F(WizardFormTest, OneTherapistNeedsNoBrowsing) {
    AddTherapist(QStringLiteral("Anna Berger"), QStringLiteral("Physiotherapeutin"), QStringLiteral("63"),
                 QStringLiteral("ABC"));
    Open();
    TypePatient();
    Next();
    EXPECT_EQ(Edit(QStringLiteral("edtTHPTherapist")).text(), QStringLiteral("Anna Berger"));
    EXPECT_EQ(Edit(QStringLiteral("edtTHPTherapistMailbox")).text(), QStringLiteral("ABC"));
    EXPECT_FALSE(Visible(QStringLiteral("cmdPrevTPT")));
    EXPECT_FALSE(Visible(QStringLiteral("cmdNextTPT")));
}

TEST_F(WizardFormTest, ThreeTherapistsAreBrowsedInTheirOrder) {
    AddTherapist(QStringLiteral("Clara Wolf"), QStringLiteral("Ergotherapeutin"), QStringLiteral("75"),
                 QStringLiteral("CW1"));
    AddTherapist(QStringLiteral("Anna Berger"), QStringLiteral("Physiotherapeutin"), QStringLiteral("63"),
                 QStringLiteral("AB1"));
    AddTherapist(QStringLiteral("Bernd Huber"), QStringLiteral("Masseur"), QStringLiteral("64"),
                 QStringLiteral("BH1"));
    Open();
    TypePatient();
    Next();
    const auto shown = [this] {
        return QStringList{Edit(QStringLiteral("edtTHPTherapist")).text(),
                           Edit(QStringLiteral("edtTHPTherapistExtension")).text(),
                           Edit(QStringLiteral("edtTHPTherapistField")).text(),
                           Edit(QStringLiteral("edtTHPTherapistMailbox")).text()};
    };
    EXPECT_EQ(shown(), (QStringList{QStringLiteral("Anna Berger"), QStringLiteral("Physiotherapeutin"),
                                    QStringLiteral("63"), QStringLiteral("AB1")}));
    EXPECT_TRUE(Visible(QStringLiteral("cmdPrevTPT")));
    EXPECT_FALSE(Enabled(QStringLiteral("cmdPrevTPT")));
    EXPECT_TRUE(Enabled(QStringLiteral("cmdNextTPT")));

    Click(QStringLiteral("cmdNextTPT"));
    EXPECT_EQ(shown().value(0), QStringLiteral("Bernd Huber"));
    EXPECT_TRUE(Enabled(QStringLiteral("cmdPrevTPT")));
    Click(QStringLiteral("cmdNextTPT"));
    EXPECT_EQ(shown(), (QStringList{QStringLiteral("Clara Wolf"), QStringLiteral("Ergotherapeutin"),
                                    QStringLiteral("75"), QStringLiteral("CW1")}));
    EXPECT_FALSE(Enabled(QStringLiteral("cmdNextTPT")));
    EXPECT_EQ(Form->State().edtTHPTherapistMailbox, QStringLiteral("CW1"));
    Click(QStringLiteral("cmdPrevTPT"));
    EXPECT_EQ(shown().value(0), QStringLiteral("Bernd Huber"));
}

TEST_F(WizardFormTest, EnteringTheLastPageFitsAndRebuildsTheLetter) {
    AddTherapist(QStringLiteral("Anna Berger"), QStringLiteral("Physiotherapeutin"), QStringLiteral("63"),
                 QStringLiteral("ABC"));
    Open();
    TypeCompleteFeedback();
    auto& view = Child<engine::TPrintLayoutView>(QStringLiteral("RichEditControl"));
    const double fitted = view.zoomFactor();
    EXPECT_LE(view.pageSizeAt100().width() * fitted, view.width());
    Child<QAction>(QStringLiteral("acRTCZoomWholePage")).trigger();
    EXPECT_LT(view.zoomFactor(), fitted);
    Child<QAction>(QStringLiteral("acRTCZoomPageWidth")).trigger();
    EXPECT_DOUBLE_EQ(view.zoomFactor(), fitted);

    Click(QStringLiteral("cmdBack"));
    Click(QStringLiteral("cmdBack"));
    Click(QStringLiteral("cmdBack"));
    Edit(QStringLiteral("edtPATFirstname")).clear();
    Type(QStringLiteral("edtPATFirstname"), QStringLiteral("Evelyn"));
    Next();
    Next();
    Next();
    EXPECT_TRUE(Form->Letter().Document().body().plainText().contains(QStringLiteral("Evelyn Muster")));
}

// Enter on the letter page leaves the letter as it is: it neither throws the feedback away
// through a focused "Abbrechen" nor sends it.
TEST_F(WizardFormTest, EnterOnTheLetterPageNeitherCancelsNorSends) {
    Open();
    TypePatient();
    Next();
    TypeReferral();
    Next();
    auto& next = Child<QPushButton>(QStringLiteral("cmdNext"));
    next.setFocus();
    QTest::keyClick(&next, Qt::Key_Return);
    ASSERT_EQ(Form->ActivePageIndex(), TFeedbackWizardForm::PublishPage);
    EXPECT_NE(Focused(), &Child<QWidget>(QStringLiteral("cmdCancel")));
    QTest::keyClick(Focused() ? Focused() : Form.data(), Qt::Key_Return);
    ProcessDeletes();

    ASSERT_FALSE(Form.isNull());
    EXPECT_EQ(Form->ActivePageIndex(), TFeedbackWizardForm::PublishPage);
    EXPECT_TRUE(OutboxFiles().isEmpty());
    EXPECT_TRUE(Dialogs.Messages().isEmpty());
}

// The name of the control that has the focus, or of the control that it belongs to
QString FocusedName(const QStringList& ANames) {
    for (QObject* control = QApplication::focusWidget(); control; control = control->parent()) {
        if (ANames.contains(control->objectName()))
            return control->objectName();
    }
    return QStringLiteral("<elsewhere>");
}

TEST_F(WizardFormTest, TabGoesThroughThePatientFieldsLineByLine) {
    Open();
    const QStringList order = {QStringLiteral("edtPATSearch"),    QStringLiteral("edtPATTitle1"),
                               QStringLiteral("edtPATFirstname"), QStringLiteral("edtPATLastname"),
                               QStringLiteral("edtPATTitle2"),    QStringLiteral("edtPATGender"),
                               QStringLiteral("edtPATStreet"),    QStringLiteral("edtPATZIPCity"),
                               QStringLiteral("edtPATSVNr"),      QStringLiteral("edtPATAssurance")};
    Edit(QStringLiteral("edtPATSearch")).setFocus();
    QStringList visited = {FocusedName(order)};
    for (int step = 1; step < order.size(); ++step) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        visited << FocusedName(order);
    }
    EXPECT_EQ(visited, order);
}

TEST_F(WizardFormTest, TabFromTheLastAnswerGoesToTheRemark) {
    Open();
    TypePatient();
    Next();
    TypeReferral();
    Next();
    QList<QComboBox*> boxes = Child<QWidget>(QStringLiteral("scrQuestions")).findChildren<QComboBox*>();
    ASSERT_FALSE(boxes.isEmpty());
    std::sort(boxes.begin(), boxes.end(),
              [](const QComboBox* A, const QComboBox* B) { return A->y() < B->y(); });
    boxes.last()->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(Focused(), &Child<QWidget>(QStringLiteral("memContent")));
}

// In the smallest main window the pages keep their fields at full height and the letter's
// tools their whole texts.
TEST_F(WizardFormTest, TheSmallestWindowSqueezesNoPage) {
    Open();
    Form->resize(735, 440);
    QCoreApplication::processEvents();
    for (const char* card : {"crdPatient", "crdDoctorReferral"}) {
        const auto& page = Child<QWidget>(QString::fromLatin1(card));
        EXPECT_GE(page.height(), page.minimumSizeHint().height()) << card;
    }
    TypeCompleteFeedback();
    QCoreApplication::processEvents();
    for (const char* tool : {"cmdPrint", "cmdExportPDF", "cmdExport", "cmdZoom"}) {
        const auto& button = Child<QToolButton>(QString::fromLatin1(tool));
        EXPECT_GE(button.width(), button.sizeHint().width()) << tool;
    }
}

TEST_F(WizardFormTest, OneWizardAtATime) {
    TFeedbackWizardForm& first = Open();
    EXPECT_EQ(TFeedbackWizardForm::Instance(), &first);
    EXPECT_EQ(TFeedbackWizardForm::OpenWizard([this] { return Data->GetConnection(); }, {}, {}), &first);
    EXPECT_EQ(first.State().FCatalogue.Boxes().size(), 7) << "the catalogue is built anew, not doubled";
    EXPECT_EQ(Form->findChildren<QComboBox*>().size(), 3 + 7);
}

TEST_F(WizardFormTest, TheNamedMessagesCloseAndFocus) {
    Open();
    norvik::PostNamedMessage(Form, norvik::NamedMessages::ResetFocus, QStringLiteral("edtPATSVNr"));
    QCoreApplication::processEvents();
    EXPECT_EQ(Focused(), &Edit(QStringLiteral("edtPATSVNr")));

    norvik::PostNamedMessage(Form, norvik::NamedMessages::FeedBackClose);
    QCoreApplication::processEvents();
    ProcessDeletes();
    EXPECT_TRUE(Form.isNull());
    EXPECT_EQ(TFeedbackWizardForm::Instance(), nullptr);
}

} // namespace
