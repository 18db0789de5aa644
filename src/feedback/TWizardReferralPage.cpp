#include "TWizardReferralPage.h"

#include "Scaling.h"
#include "TOptionalDateEdit.h"
#include "TWizardControls.h"
#include "TnvValidatedEdit.h"

#include <QAction>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>
#include <QToolButton>

using norvik::Scale;

namespace {

constexpr int NoteWidth = 220;
constexpr int NoteColumn = 2;

const QString NoteTitle = QStringLiteral("Es müssen folgende Daten befüllt werden:");

QToolButton* ArrowButton(const QString& AName, Qt::ArrowType AArrow, const QString& AHint, QWidget* AParent) {
    auto* button = new QToolButton(AParent);
    button->setObjectName(AName);
    button->setArrowType(AArrow);
    button->setToolTip(AHint);
    return button;
}

} // namespace

TWizardReferralPage::TWizardReferralPage(QWidget* AParent)
    : QWidget(AParent) {
    setObjectName(QStringLiteral("crdDoctorReferral"));
    CreatePhysicianControls();
    CreateReferralControls();
    Arrange();
}

void TWizardReferralPage::CreatePhysicianControls() {
    edtADRSearch =
        TWizardControls::Edit(QStringLiteral("edtADRSearch"), QStringLiteral("Schnellsuche Arzt"), this);
    cmdChangeADRSearchProvider = new QToolButton(this);
    cmdChangeADRSearchProvider->setObjectName(QStringLiteral("cmdChangeADRSearchProvider"));
    cmdChangeADRSearchProvider->setIcon(style()->standardIcon(QStyle::SP_DriveNetIcon));
    cmdChangeADRSearchProvider->setToolTip(
        QStringLiteral("Ärztestamm von DaMe laden - dies kann etwas dauern."));
    edtDOCName = TWizardControls::CheckedEdit(
        QStringLiteral("edtDOCName"), QStringLiteral("Name (Vorname + Nachname oder Institutsname)"), this);
    edtDOCStreet = TWizardControls::CheckedEdit(QStringLiteral("edtDOCStreet"),
                                                QStringLiteral("Straße, Hausnummer"), this);
    edtDOCZIPCity = TWizardControls::CheckedEdit(QStringLiteral("edtDOCZIPCity"),
                                                 QStringLiteral("PLZ und Ortsname"), this);
    edtDOCMailbox = TWizardControls::CheckedEdit(QStringLiteral("edtDOCMailbox"),
                                                 QStringLiteral("Mailboxadresse (ME123456)"), this);
    // the edit keeps the button of its kind, which this program does not show
    auto* mailboxButton = new QAction(edtDOCMailbox);
    mailboxButton->setObjectName(QStringLiteral("edtDOCMailboxButton"));
    edtDOCMailbox->addAction(mailboxButton, QLineEdit::TrailingPosition);
    // hidden once added, so that the edit hides the button it made for it
    mailboxButton->setVisible(false);
    edtDOCSalutation =
        TWizardControls::Edit(QStringLiteral("edtDOCSalutation"), QStringLiteral("Direkte Anrede"), this);
    edtDOCSalutation->setVisible(false);
}

void TWizardReferralPage::CreateReferralControls() {
    edtTHPDiagnosis =
        TWizardControls::CheckedEdit(QStringLiteral("edtTHPDiagnosis"), QStringLiteral("Diagnose"), this);
    edtTHPStart =
        TWizardControls::DateEdit(QStringLiteral("edtTHPStart"), QStringLiteral("Behandlung Start"), this);
    edtTHPEnd =
        TWizardControls::DateEdit(QStringLiteral("edtTHPEnd"), QStringLiteral("Behandlung Ende"), this);
    edtTHPTherapist = TWizardControls::CheckedEdit(QStringLiteral("edtTHPTherapist"),
                                                   QStringLiteral("Name Therapeut(in)"), this);
    edtTHPTherapistExtension = TWizardControls::CheckedEdit(
        QStringLiteral("edtTHPTherapistExtension"), QStringLiteral("Berufsbezeichnung Therapeut(in)"), this);
    edtTHPTherapistField = TWizardControls::CheckedEdit(QStringLiteral("edtTHPTherapistField"),
                                                        QStringLiteral("Fachgebiet Therapeut (63)"), this);
    edtTHPTherapistMailbox = TWizardControls::CheckedEdit(QStringLiteral("edtTHPTherapistMailbox"),
                                                          QStringLiteral("Mailboxadresse Therapeut"), this);
    cmdPrevTPT =
        ArrowButton(QStringLiteral("cmdPrevTPT"), Qt::LeftArrow, QStringLiteral("Voriger Therapeut"), this);
    cmdNextTPT =
        ArrowButton(QStringLiteral("cmdNextTPT"), Qt::RightArrow, QStringLiteral("Nächster Therapeut"), this);
}

QWidget* TWizardReferralPage::TherapistRow() {
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Scale(4));
    layout->addWidget(edtTHPTherapist, 1);
    layout->addWidget(cmdPrevTPT);
    layout->addWidget(cmdNextTPT);
    return row;
}

void TWizardReferralPage::Arrange() {
    auto* grid = new QGridLayout(this);
    grid->setHorizontalSpacing(Scale(8));
    grid->setVerticalSpacing(Scale(6));
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    grid->setColumnMinimumWidth(NoteColumn, Scale(NoteWidth));

    auto* search = new QHBoxLayout;
    search->setSpacing(Scale(4));
    search->addWidget(edtADRSearch, 1);
    search->addWidget(cmdChangeADRSearchProvider);
    grid->addLayout(search, 0, 0, 1, 2);
    grid->addWidget(TWizardControls::Heading(QStringLiteral("Überweiser"), this), 1, 0, 1, 2);
    grid->addWidget(edtDOCName, 2, 0, 1, 2);
    grid->addWidget(edtDOCStreet, 3, 0);
    grid->addWidget(edtDOCZIPCity, 3, 1);
    grid->addWidget(edtDOCMailbox, 4, 0);
    grid->addWidget(edtDOCSalutation, 4, 1);
    grid->addWidget(TWizardControls::Note(NoteTitle,
                                          {QStringLiteral("Name des Arztes oder Institutsname"),
                                           QStringLiteral("Anschrift"), QStringLiteral("Mailboxadresse")},
                                          this),
                    1, NoteColumn, 4, 1, Qt::AlignTop);

    grid->addWidget(TWizardControls::Heading(QStringLiteral("Überweisung Daten"), this), 5, 0, 1, 2);
    grid->addWidget(edtTHPDiagnosis, 6, 0, 1, 2);
    grid->addWidget(edtTHPStart, 7, 0);
    grid->addWidget(edtTHPEnd, 7, 1);
    grid->addWidget(TWizardControls::Heading(QStringLiteral("Therapeut(in)"), this), 8, 0, 1, 2);
    grid->addWidget(TherapistRow(), 9, 0, 1, 2);
    grid->addWidget(edtTHPTherapistExtension, 10, 0, 1, 2);
    grid->addWidget(edtTHPTherapistField, 11, 0);
    grid->addWidget(edtTHPTherapistMailbox, 11, 1);
    grid->addWidget(
        TWizardControls::Note(NoteTitle,
                              {QStringLiteral("Diagnose und Zeitraum"), QStringLiteral("Name Therapeut(in)"),
                               QStringLiteral("Berufsbezeichnung"),
                               QStringLiteral("Fachgebiet und Mailboxadresse")},
                              this),
        5, NoteColumn, 7, 1, Qt::AlignTop);
    grid->setRowStretch(12, 1);
    // the arrows that browse the therapists follow the name they change
    setTabOrder(edtTHPTherapist, cmdPrevTPT);
    setTabOrder(cmdPrevTPT, cmdNextTPT);
    setTabOrder(cmdNextTPT, edtTHPTherapistExtension);
}
