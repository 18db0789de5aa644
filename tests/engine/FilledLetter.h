#pragma once

#include "TFeedbackDocument.h"
#include "TFeedbackWizardState.h"

// A feedback as a therapist fills it in, with the second answer of every box chosen; the
// remark has blanks around it, which the letter leaves out.
void FillInFeedback(TFeedbackWizardState& AState, const QString& ACatalogue = QString());

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
