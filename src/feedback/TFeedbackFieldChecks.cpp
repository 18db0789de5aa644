#include "TFeedbackFieldChecks.h"

#include "TFeedbackWizardState.h"
#include "TSVNr.h"

#include <QHash>
#include <QStringList>

namespace {

constexpr int SVNrLength = 10;

// the checked controls of each page, in the order they are tested
const QStringList& CheckedControls(int AIndex) {
    static const QStringList patientPage{QStringLiteral("edtPATLastname"), QStringLiteral("edtPATFirstname"),
                                         QStringLiteral("edtPATSVNr")};
    static const QStringList referralPage{QStringLiteral("edtDOCName"),
                                          QStringLiteral("edtDOCMailbox"),
                                          QStringLiteral("edtTHPDiagnosis"),
                                          QStringLiteral("edtTHPStart"),
                                          QStringLiteral("edtTHPEnd"),
                                          QStringLiteral("edtTHPTherapist"),
                                          QStringLiteral("edtTHPTherapistExtension"),
                                          QStringLiteral("edtTHPTherapistField"),
                                          QStringLiteral("edtTHPTherapistMailbox")};
    static const QStringList none;
    return AIndex == 0 ? patientPage : AIndex == 1 ? referralPage : none;
}

} // namespace

void TFeedbackFieldChecks::FieldRequiredValidate(const QString& ADisplayValue, QString& AErrorText,
                                                 bool& AError) {
    if (ADisplayValue.trimmed().isEmpty()) {
        AError = true;
        AErrorText = QStringLiteral("Der Wert darf nicht leer bleiben.");
    }
}

void TFeedbackFieldChecks::edtPATSVNrPropertiesValidate(const QString& ADisplayValue, QString& AErrorText,
                                                        bool& AError) {
    if (ADisplayValue.size() != SVNrLength || !TSVNr::IsSVNrFormatValid(ADisplayValue, true)) {
        AError = true;
        AErrorText = QStringLiteral("Die SVNr ist syntaktisch falsch. Bitte kontrollieren Sie die Nummer.");
    }
}

TFeedbackFieldChecks::TValidateEvent TFeedbackFieldChecks::ValidateEventOf(const QString& AControlName) {
    static const QHash<QString, TValidateEvent> events{
        {QStringLiteral("edtPATLastname"), &FieldRequiredValidate},
        {QStringLiteral("edtPATFirstname"), &FieldRequiredValidate},
        {QStringLiteral("edtPATSVNr"), &edtPATSVNrPropertiesValidate},
        {QStringLiteral("edtDOCName"), &FieldRequiredValidate},
        {QStringLiteral("edtDOCStreet"), &FieldRequiredValidate},
        {QStringLiteral("edtDOCZIPCity"), &FieldRequiredValidate},
        {QStringLiteral("edtDOCMailbox"), &FieldRequiredValidate},
        {QStringLiteral("edtTHPDiagnosis"), &FieldRequiredValidate},
        {QStringLiteral("edtTHPStart"), &FieldRequiredValidate},
        {QStringLiteral("edtTHPEnd"), &FieldRequiredValidate},
        {QStringLiteral("edtTHPTherapist"), &FieldRequiredValidate},
        {QStringLiteral("edtTHPTherapistExtension"), &FieldRequiredValidate},
        {QStringLiteral("edtTHPTherapistField"), &FieldRequiredValidate},
        {QStringLiteral("edtTHPTherapistMailbox"), &FieldRequiredValidate},
    };
    return events.value(AControlName, nullptr);
}

bool TFeedbackFieldChecks::IsFieldValid(TValidateEvent AEvent, const QString& ADisplayValue) {
    if (AEvent == nullptr)
        return true;
    QString errorText;
    bool error = false;
    AEvent(ADisplayValue, errorText, error);
    return !error;
}

bool TFeedbackFieldChecks::IsPageComplete(const TFeedbackWizardState& AState, int AIndex) {
    if (AIndex == 2)
        return true;
    const QStringList& controls = CheckedControls(AIndex);
    if (controls.isEmpty())
        return false;
    for (const QString& control : controls) {
        if (!IsFieldValid(ValidateEventOf(control), AState.DisplayText(control)))
            return false;
    }
    return true;
}
