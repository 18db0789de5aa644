#pragma once

#include "Variant.h"

#include <QString>

class ITherapistSource;
class TFeedbackWizardState;

// The two movements of the wizard's values: from the content a calling program hands over
// into the controls, and from the controls into the merge fields of the letter.
//
// The content is one JSON object; every key is optional and compared exactly:
//   patient   lastname, firstname, street, zipcity, gender ("female", "male", "undefined"
//             in any letter case), title, title2, assurance, ssnr
//   referrer  mailbox, name, salutation, street, zipcity
//   referral  diagnosis, therapist, therapistextension, therapistfield, therapistmailbox,
//             start, end (a date or a text: ISO 8601 or what a person would type)
//   presets   question name -> answer code, both in any letter case
// Within an object that is given, a missing key empties its control.
class TFeedbackMergeValues {
public:
    // AValues names a file (UTF-8) or is the JSON text itself. The therapist of the referral
    // becomes the active one, looked up by name; without one the first therapist stays active,
    // and an empty therapist edit is filled from the active therapist. Bad content never
    // fails: what was read before the error is applied.
    static void PrepareValues(TFeedbackWizardState& AState, const QString& AValues,
                              ITherapistSource& ASource);
    // Writes PATGESCHLECHT, PATIENT, VON, BIS, DIAGNOSE, THERAPEUT, BERUFSBEZEICHNUNG,
    // ARZT_NAME, ARZT_STRASSE, ARZT_PLZORT and ARZT_DIREKTANREDE into FValues. VON and BIS
    // only for a date, so a removed date keeps its earlier value.
    static void BuildMergeFields(TFeedbackWizardState& AState);

    // start and end of a referral: Null for no date, a date kind as it is, and text read as
    // ISO 8601 (in UTC) or else by the tolerant date parser, date words included
    static norvik::Variant ConvertDate(const norvik::Variant& AValue);

private:
    static norvik::Variant ReadDocument(const QString& AValues);
    static void ApplyPatient(TFeedbackWizardState& AState, const norvik::Variant& APatient);
    static void ApplyReferrer(TFeedbackWizardState& AState, const norvik::Variant& AReferrer);
    static void ApplyReferral(TFeedbackWizardState& AState, const norvik::Variant& AReferral,
                              ITherapistSource& ASource);
    static void ApplyPresets(TFeedbackWizardState& AState, const norvik::Variant& APresets);
    static void ApplyPreset(TFeedbackWizardState& AState, const QString& AQuestionName, const QString& ACode);
    static int GenderIndex(const QString& AGender);
    static QString PatientText(const TFeedbackWizardState& AState);
    static QString GenderText(int AItemIndex);
};
