#pragma once

#include "TFeedbackDocument.h"
#include "TFeedbackWizardState.h"

// The built-in letter as a therapist fills it in: patient, physician, period, therapist and the
// second answer of every question of the built-in catalogue.
class FilledLetter {
public:
    FilledLetter();

    engine::TDocument& document() { return m_letter.Document(); }
    // builds the letter anew from the built-in template, as entering the last page does
    void rebuild();

private:
    TFeedbackWizardState m_state;
    TFeedbackDocument m_letter{m_state};
};
