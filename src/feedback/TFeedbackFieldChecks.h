#pragma once

#include <QString>

class TFeedbackWizardState;

// The checks of the wizard's fields and the rule for going on to the next page. A failed
// check is shown at its field and keeps "Weiter" disabled; it never keeps the focus.
class TFeedbackFieldChecks {
public:
    // a field's validation event: sets AError and AErrorText when the value isn't acceptable
    using TValidateEvent = void (*)(const QString& ADisplayValue, QString& AErrorText, bool& AError);

    // the value must not be blank
    static void FieldRequiredValidate(const QString& ADisplayValue, QString& AErrorText, bool& AError);
    // the social insurance number must have ten characters and a valid form; the serial
    // "0000" is allowed
    static void edtPATSVNrPropertiesValidate(const QString& ADisplayValue, QString& AErrorText, bool& AError);

    // the validation event of the control of that name; nullptr for a control without one
    static TValidateEvent ValidateEventOf(const QString& AControlName);
    // runs the event on the text without showing anything; a field without event is valid
    static bool IsFieldValid(TValidateEvent AEvent, const QString& ADisplayValue);
    // page 0 needs the patient's names and number, page 1 the physician's name and mailbox,
    // the diagnosis, the period and the therapist; page 2 needs nothing, and there is no
    // going on from page 3 or any other
    static bool IsPageComplete(const TFeedbackWizardState& AState, int AIndex);
};
