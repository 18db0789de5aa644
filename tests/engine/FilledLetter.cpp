#include "FilledLetter.h"

#include "TDateTimeUtils.h"

void FillInFeedback(TFeedbackWizardState& AState, const QString& ACatalogue) {
    AState.edtPATFirstname = QStringLiteral("Anna");
    AState.edtPATLastname = QStringLiteral("Beispiel");
    AState.edtPATSVNr = QStringLiteral("1237010180");
    AState.edtPATGender.SetItemIndex(1);
    AState.edtDOCName = QStringLiteral("Dr. Eva Muster");
    AState.edtDOCStreet = QStringLiteral("Hauptplatz 3");
    AState.edtDOCZIPCity = QStringLiteral("A-8010 Graz");
    AState.edtTHPDiagnosis = QStringLiteral("Lumbalgie");
    AState.edtTHPStart = norvik::Variant::fromDate(norvik::TDateTimeUtils::EncodeDate(2026, 3, 2));
    AState.edtTHPEnd = norvik::Variant::fromDate(norvik::TDateTimeUtils::EncodeDate(2026, 4, 27));
    AState.edtTHPTherapist = QStringLiteral("Maria Huber");
    AState.edtTHPTherapistExtension = QStringLiteral("Physiotherapeutin");
    AState.FCatalogue.CreateQuestions(ACatalogue);
    for (TAnswerBox& box : AState.FCatalogue.Boxes()) {
        box.ItemIndex = 1;
        box.Text = box.Items.value(1);
    }
    AState.memContent = QStringLiteral("  Heimübungsprogramm wurde mitgegeben.  ");
}

FilledLetter::FilledLetter() {
    FillInFeedback(m_state);
    rebuild();
}

void FilledLetter::rebuild() {
    m_letter.BuildDocument(QString(), QString());
}
