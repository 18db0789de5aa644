#include "TFeedbackMergeValues.h"

#include "DateUtils.h"
#include "ITherapistSource.h"
#include "StringUtils.h"
#include "TFeedbackWizardState.h"
#include "TnvNamedValues.h"
#include "VariantJSON.h"

#include <QFile>
#include <QFileInfo>
#include <QStringList>

using norvik::Variant;

namespace {

// a value of the content as the text of a control; null stands for no text
QString TextOf(const Variant& AValue) {
    return AValue.isNull() ? QString() : AValue.toString();
}

QString TextOf(const Variant& AObject, const char16_t* AKey) {
    return TextOf(AObject.value(QString::fromUtf16(AKey)));
}

// a member of the document that can be read key by key
bool HasObject(const Variant& ADocument, const QString& AKey) {
    if (!norvik::JSONVariantHasName(ADocument, AKey))
        return false;
    const Variant member = ADocument.value(AKey);
    return member.isJSON() && norvik::JSONVariantKindOf(member) == norvik::jvObject;
}

} // namespace

void TFeedbackMergeValues::PrepareValues(TFeedbackWizardState& AState, const QString& AValues,
                                         ITherapistSource& ASource) {
    const Variant document = ReadDocument(AValues);
    if (document.isEmpty()) {
        AState.FTPT = AState.FTPTs.isEmpty() ? norvik::TnvNamedValues::Create() : AState.FTPTs.first();
    } else if (document.isJSON()) {
        if (HasObject(document, QStringLiteral("patient")))
            ApplyPatient(AState, document.value(QStringLiteral("patient")));
        if (HasObject(document, QStringLiteral("referrer")))
            ApplyReferrer(AState, document.value(QStringLiteral("referrer")));
        if (HasObject(document, QStringLiteral("referral")))
            ApplyReferral(AState, document.value(QStringLiteral("referral")), ASource);
        if (HasObject(document, QStringLiteral("presets")))
            ApplyPresets(AState, document.value(QStringLiteral("presets")));
    }
    if (AState.edtTHPTherapist.isEmpty())
        AState.ShowTherapistRow(*AState.FTPT);
}

void TFeedbackMergeValues::BuildMergeFields(TFeedbackWizardState& AState) {
    norvik::TnvNamedValues& values = *AState.FValues;
    values.SetValueAsString(QStringLiteral("PATGESCHLECHT"), GenderText(AState.edtPATGender.ItemIndex()));
    values.SetValueAsString(QStringLiteral("PATIENT"), PatientText(AState));
    if (TFeedbackWizardState::DateValue(AState.edtTHPStart) > 0)
        values.SetValueAsString(QStringLiteral("VON"),
                                TFeedbackWizardState::DateDisplayText(AState.edtTHPStart));
    if (TFeedbackWizardState::DateValue(AState.edtTHPEnd) > 0)
        values.SetValueAsString(QStringLiteral("BIS"),
                                TFeedbackWizardState::DateDisplayText(AState.edtTHPEnd));
    values.SetValueAsString(QStringLiteral("DIAGNOSE"), AState.edtTHPDiagnosis);
    values.SetValueAsString(QStringLiteral("THERAPEUT"), AState.edtTHPTherapist);
    values.SetValueAsString(QStringLiteral("BERUFSBEZEICHNUNG"), AState.edtTHPTherapistExtension);
    values.SetValueAsString(QStringLiteral("ARZT_NAME"), AState.edtDOCName);
    values.SetValueAsString(QStringLiteral("ARZT_STRASSE"), AState.edtDOCStreet);
    values.SetValueAsString(QStringLiteral("ARZT_PLZORT"), AState.edtDOCZIPCity);
    values.SetValueAsString(QStringLiteral("ARZT_DIREKTANREDE"), AState.edtDOCSalutation);
}

Variant TFeedbackMergeValues::ConvertDate(const Variant& AValue) {
    if (AValue.isEmpty())
        return Variant::null();
    if (AValue.valueType() == norvik::VarType::Date)
        return AValue.stripped();
    const QString text = TextOf(AValue);
    norvik::TDateTime date = norvik::ISO8601TextToDate(text, true, 0);
    if (date == 0 && norvik::TryTextToDate(text, date, false) != 1)
        date = 0;
    return date == 0 ? Variant::null() : Variant::fromDate(date);
}

Variant TFeedbackMergeValues::ReadDocument(const QString& AValues) {
    if (QFileInfo(AValues).isFile()) {
        QFile file(AValues);
        if (!file.open(QIODevice::ReadOnly))
            return Variant::null();
        QString text = QString::fromUtf8(file.readAll());
        if (text.startsWith(QChar::ByteOrderMark))
            text.remove(0, 1);
        return norvik::JSONVariant(text);
    }
    return AValues.isEmpty() ? Variant::null() : norvik::JSONVariant(AValues);
}

void TFeedbackMergeValues::ApplyPatient(TFeedbackWizardState& AState, const Variant& APatient) {
    AState.edtPATLastname = TextOf(APatient, u"lastname");
    AState.edtPATFirstname = TextOf(APatient, u"firstname");
    AState.edtPATStreet = TextOf(APatient, u"street");
    AState.edtPATZIPCity = TextOf(APatient, u"zipcity");
    AState.edtPATGender.SetItemIndex(GenderIndex(TextOf(APatient, u"gender")));
    AState.edtPATTitle1.SetText(TextOf(APatient, u"title"));
    AState.edtPATTitle2.SetText(TextOf(APatient, u"title2"));
    AState.edtPATAssurance = TextOf(APatient, u"assurance");
    AState.edtPATSVNr = TextOf(APatient, u"ssnr");
}

void TFeedbackMergeValues::ApplyReferrer(TFeedbackWizardState& AState, const Variant& AReferrer) {
    AState.edtDOCMailbox = TextOf(AReferrer, u"mailbox");
    AState.edtDOCName = TextOf(AReferrer, u"name");
    AState.edtDOCSalutation = TextOf(AReferrer, u"salutation");
    AState.edtDOCStreet = TextOf(AReferrer, u"street");
    AState.edtDOCZIPCity = TextOf(AReferrer, u"zipcity");
}

void TFeedbackMergeValues::ApplyReferral(TFeedbackWizardState& AState, const Variant& AReferral,
                                         ITherapistSource& ASource) {
    AState.edtTHPDiagnosis = TextOf(AReferral, u"diagnosis");
    AState.edtTHPTherapist = TextOf(AReferral, u"therapist");
    AState.edtTHPTherapistExtension = TextOf(AReferral, u"therapistextension");
    AState.edtTHPTherapistField = TextOf(AReferral, u"therapistfield");
    AState.edtTHPTherapistMailbox = TextOf(AReferral, u"therapistmailbox");
    AState.edtTHPStart = ConvertDate(AReferral.value(QStringLiteral("start")));
    AState.edtTHPEnd = ConvertDate(AReferral.value(QStringLiteral("end")));
    if (!AState.edtTHPTherapist.isEmpty()) {
        const norvik::InvNamedValuesPtr row = ASource.TherapistByName(AState.edtTHPTherapist);
        AState.FTPT = row ? row : norvik::TnvNamedValues::Create();
    }
}

void TFeedbackMergeValues::ApplyPresets(TFeedbackWizardState& AState, const Variant& APresets) {
    const norvik::TJSONVariantData* presets = norvik::JSONVariantDataSafe(APresets, norvik::jvObject);
    for (int index = 0; index < presets->VCount; ++index)
        ApplyPreset(AState, presets->NameAt(index), TextOf(presets->ValueAt(index)));
}

void TFeedbackMergeValues::ApplyPreset(TFeedbackWizardState& AState, const QString& AQuestionName,
                                       const QString& ACode) {
    QList<TAnswerBox>& boxes = AState.FCatalogue.Boxes();
    for (const TContentInfo& info : AState.FCatalogue.Content()) {
        // a heading shares its question's name but has no box to select in
        if (info.Combo < 0 || info.Combo >= boxes.size() ||
            info.QuestionName.compare(AQuestionName, Qt::CaseInsensitive) != 0)
            continue;
        // from the last answer down, so of two answers with one code the later is chosen
        int found = int(info.QuestionPairs.size()) - 1;
        while (found >= 0 && info.QuestionPairs.at(found).Code.compare(ACode, Qt::CaseInsensitive) != 0)
            --found;
        TAnswerBox& box = boxes[info.Combo];
        box.ItemIndex = found;
        box.Text = found >= 0 && found < box.Items.size() ? box.Items.at(found) : QString();
    }
}

int TFeedbackMergeValues::GenderIndex(const QString& AGender) {
    static const QStringList genders{QStringLiteral("male"), QStringLiteral("female"),
                                     QStringLiteral("undefined")};
    for (int index = 0; index < genders.size(); ++index) {
        if (genders.at(index).compare(AGender, Qt::CaseInsensitive) == 0)
            return index;
    }
    return -1;
}

QString TFeedbackMergeValues::PatientText(const TFeedbackWizardState& AState) {
    QString text = norvik::JoinTrimmed({AState.edtPATFirstname, AState.edtPATLastname}, QStringLiteral(" "));
    if (!AState.edtPATSVNr.isEmpty())
        text += QStringLiteral(" (") + AState.edtPATSVNr + u')';
    return text;
}

QString TFeedbackMergeValues::GenderText(int AItemIndex) {
    switch (AItemIndex) {
    case 0:
        return QStringLiteral("Ihres Patienten");
    case 1:
        return QStringLiteral("Ihrer Patientin");
    default:
        return QStringLiteral("von");
    }
}
