#include "FilledLetter.h"

#include "TDateTimeUtils.h"

FilledLetter::FilledLetter() {
    m_state.edtPATFirstname = QStringLiteral("Anna");
    m_state.edtPATLastname = QStringLiteral("Beispiel");
    m_state.edtPATSVNr = QStringLiteral("1237010180");
    m_state.edtPATGender.SetItemIndex(1);
    m_state.edtDOCName = QStringLiteral("Dr. Eva Muster");
    m_state.edtDOCStreet = QStringLiteral("Hauptplatz 3");
    m_state.edtDOCZIPCity = QStringLiteral("A-8010 Graz");
    m_state.edtTHPDiagnosis = QStringLiteral("Lumbalgie");
    m_state.edtTHPStart = norvik::Variant::fromDate(norvik::TDateTimeUtils::EncodeDate(2026, 3, 2));
    m_state.edtTHPEnd = norvik::Variant::fromDate(norvik::TDateTimeUtils::EncodeDate(2026, 4, 27));
    m_state.edtTHPTherapist = QStringLiteral("Maria Huber");
    m_state.edtTHPTherapistExtension = QStringLiteral("Physiotherapeutin");
    m_state.FCatalogue.CreateQuestions(QString());
    for (TAnswerBox& box : m_state.FCatalogue.Boxes()) {
        box.ItemIndex = 1;
        box.Text = box.Items.value(1);
    }
    m_state.memContent = QStringLiteral("Heimübungsprogramm wurde mitgegeben.");
    rebuild();
}

void FilledLetter::rebuild() {
    m_letter.BuildDocument(QString(), QString());
}
