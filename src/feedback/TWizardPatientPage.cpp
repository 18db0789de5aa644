#include "TWizardPatientPage.h"

#include "Scaling.h"
#include "TFeedbackWizardState.h"
#include "TWizardControls.h"
#include "TnvValidatedEdit.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

using norvik::Scale;

namespace {

// columns of the page: title before, first name, last name, title after, and the note
constexpr int TitleWidth = 110;
constexpr int NoteWidth = 220;
constexpr int NoteColumn = 4;

} // namespace

TWizardPatientPage::TWizardPatientPage(QWidget* AParent)
    : QWidget(AParent) {
    setObjectName(QStringLiteral("crdPatient"));
    CreateControls();
    Arrange();
}

void TWizardPatientPage::CreateControls() {
    edtPATSearch =
        TWizardControls::Edit(QStringLiteral("edtPATSearch"), QStringLiteral("Schnellsuche Patient"), this);
    edtPATLastname =
        TWizardControls::CheckedEdit(QStringLiteral("edtPATLastname"), QStringLiteral("Nachname"), this);
    edtPATFirstname =
        TWizardControls::CheckedEdit(QStringLiteral("edtPATFirstname"), QStringLiteral("Vorname"), this);
    edtPATStreet =
        TWizardControls::Edit(QStringLiteral("edtPATStreet"), QStringLiteral("Straße, Hausnummer"), this);
    edtPATZIPCity =
        TWizardControls::Edit(QStringLiteral("edtPATZIPCity"), QStringLiteral("PLZ und Ortsname"), this);
    edtPATGender = TWizardControls::Combo(QStringLiteral("edtPATGender"), QStringLiteral("Geschlecht"),
                                          TFeedbackWizardState::GenderItems(), this);
    edtPATTitle1 = TWizardControls::Combo(QStringLiteral("edtPATTitle1"), QStringLiteral("Titel vorang."),
                                          TFeedbackWizardState::TitleItems(), this);
    edtPATTitle2 = TWizardControls::Combo(QStringLiteral("edtPATTitle2"), QStringLiteral("Titel nachgest."),
                                          TFeedbackWizardState::TitleItems(), this);
    edtPATSVNr =
        TWizardControls::CheckedEdit(QStringLiteral("edtPATSVNr"), QStringLiteral("SVNr (10-stellig)"), this);
    edtPATAssurance =
        TWizardControls::Edit(QStringLiteral("edtPATAssurance"), QStringLiteral("Versicherung"), this);
}

void TWizardPatientPage::Arrange() {
    auto* grid = new QGridLayout(this);
    grid->setHorizontalSpacing(Scale(8));
    grid->setVerticalSpacing(Scale(6));
    grid->setColumnMinimumWidth(0, Scale(TitleWidth));
    grid->setColumnMinimumWidth(3, Scale(TitleWidth));
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(2, 1);
    grid->setColumnMinimumWidth(NoteColumn, Scale(NoteWidth));

    grid->addWidget(edtPATSearch, 0, 0, 1, 4);
    grid->addWidget(TWizardControls::Heading(QStringLiteral("Patientendaten"), this), 1, 0, 1, 4);
    grid->addWidget(edtPATTitle1, 2, 0);
    grid->addWidget(edtPATFirstname, 2, 1);
    grid->addWidget(edtPATLastname, 2, 2);
    grid->addWidget(edtPATTitle2, 2, 3);
    grid->addWidget(edtPATGender, 3, 0);
    grid->addWidget(edtPATStreet, 4, 0, 1, 4);
    grid->addWidget(edtPATZIPCity, 5, 0, 1, 4);
    grid->addWidget(TWizardControls::Heading(QStringLiteral("Versicherungsdaten"), this), 6, 0, 1, 4);
    grid->addWidget(edtPATSVNr, 7, 0, 1, 2);
    grid->addWidget(edtPATAssurance, 7, 2, 1, 2);
    grid->addWidget(TWizardControls::Note(QStringLiteral("Es müssen folgende Daten befüllt werden:"),
                                          {QStringLiteral("Nachname"), QStringLiteral("Vorname"),
                                           QStringLiteral("Sozialversicherungsnummer")},
                                          this),
                    1, NoteColumn, 7, 1, Qt::AlignTop);
    grid->setRowStretch(8, 1);
    SetTabOrder();
}

void TWizardPatientPage::SetTabOrder() {
    // line by line, as the fields stand on the page
    const QList<QWidget*> order = {edtPATSearch, edtPATTitle1,   edtPATFirstname, edtPATLastname,
                                   edtPATTitle2, edtPATGender,   edtPATStreet,    edtPATZIPCity,
                                   edtPATSVNr,   edtPATAssurance};
    for (int index = 1; index < order.size(); ++index)
        setTabOrder(order.at(index - 1), order.at(index));
}
