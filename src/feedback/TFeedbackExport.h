#pragma once

class TFeedbackWizardState;

// The values the outbox message is written from.
class TFeedbackExport {
public:
    // Empties FExport and fills it from the wizard: the outbox folder of the configuration, the
    // physician's mailbox, the active therapist, the patient with the date of birth taken from
    // the social insurance number, and the patient's location split into postal code and city.
    static void FillExport(TFeedbackWizardState& AState);
};
