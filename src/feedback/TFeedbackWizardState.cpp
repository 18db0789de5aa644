#include "TFeedbackWizardState.h"

#include "FormatUtils.h"
#include "SystemFormats.h"
#include "TDateTimeUtils.h"

using norvik::InvNamedValuesPtr;
using norvik::TnvNamedValues;
using norvik::Variant;

const QStringList& TFeedbackWizardState::GenderItems() {
    static const QStringList items{QStringLiteral("Männlich"), QStringLiteral("Weiblich"),
                                   QStringLiteral("Unbestimmt")};
    return items;
}

const QStringList& TFeedbackWizardState::TitleItems() {
    static const QStringList items{QStringLiteral("Dr."), QStringLiteral("Mag."), QStringLiteral("Dipl.Ing."),
                                   QStringLiteral("DDr."), QStringLiteral("Mag.(FH)")};
    return items;
}

TFeedbackWizardState::TFeedbackWizardState()
    : edtPATGender(GenderItems())
    , edtPATTitle1(TitleItems())
    , edtPATTitle2(TitleItems())
    , edtTHPStart(Variant::null())
    , edtTHPEnd(Variant::null())
    , FTPT(TnvNamedValues::Create())
    , FConfig(TnvNamedValues::Create())
    , FValues(TnvNamedValues::Create())
    , FPAT(TnvNamedValues::Create())
    , FADR(TnvNamedValues::Create())
    , FExport(TnvNamedValues::Create()) {}

const QList<TFeedbackWizardState::TTextEdit>& TFeedbackWizardState::TextEdits() {
    using S = TFeedbackWizardState;
    static const QList<TTextEdit> edits{
        {QStringLiteral("edtPATLastname"), &S::edtPATLastname},
        {QStringLiteral("edtPATFirstname"), &S::edtPATFirstname},
        {QStringLiteral("edtPATStreet"), &S::edtPATStreet},
        {QStringLiteral("edtPATZIPCity"), &S::edtPATZIPCity},
        {QStringLiteral("edtPATSVNr"), &S::edtPATSVNr},
        {QStringLiteral("edtPATAssurance"), &S::edtPATAssurance},
        {QStringLiteral("edtDOCName"), &S::edtDOCName},
        {QStringLiteral("edtDOCStreet"), &S::edtDOCStreet},
        {QStringLiteral("edtDOCZIPCity"), &S::edtDOCZIPCity},
        {QStringLiteral("edtDOCMailbox"), &S::edtDOCMailbox},
        {QStringLiteral("edtDOCSalutation"), &S::edtDOCSalutation},
        {QStringLiteral("edtTHPDiagnosis"), &S::edtTHPDiagnosis},
        {QStringLiteral("edtTHPTherapist"), &S::edtTHPTherapist},
        {QStringLiteral("edtTHPTherapistExtension"), &S::edtTHPTherapistExtension},
        {QStringLiteral("edtTHPTherapistField"), &S::edtTHPTherapistField},
        {QStringLiteral("edtTHPTherapistMailbox"), &S::edtTHPTherapistMailbox},
        {QStringLiteral("memContent"), &S::memContent},
    };
    return edits;
}

const QList<TFeedbackWizardState::TComboBox>& TFeedbackWizardState::ComboBoxes() {
    using S = TFeedbackWizardState;
    static const QList<TComboBox> boxes{
        {QStringLiteral("edtPATGender"), &S::edtPATGender},
        {QStringLiteral("edtPATTitle1"), &S::edtPATTitle1},
        {QStringLiteral("edtPATTitle2"), &S::edtPATTitle2},
    };
    return boxes;
}

const QList<TFeedbackWizardState::TDateEdit>& TFeedbackWizardState::DateEdits() {
    using S = TFeedbackWizardState;
    static const QList<TDateEdit> edits{
        {QStringLiteral("edtTHPStart"), &S::edtTHPStart},
        {QStringLiteral("edtTHPEnd"), &S::edtTHPEnd},
    };
    return edits;
}

QString TFeedbackWizardState::DisplayText(const QString& AControlName) const {
    for (const TTextEdit& edit : TextEdits()) {
        if (edit.Name == AControlName)
            return this->*edit.Member;
    }
    for (const TComboBox& box : ComboBoxes()) {
        if (box.Name == AControlName)
            return (this->*box.Member).Text();
    }
    for (const TDateEdit& edit : DateEdits()) {
        if (edit.Name == AControlName)
            return DateDisplayText(this->*edit.Member);
    }
    return {};
}

QString TFeedbackWizardState::DateDisplayText(const Variant& AEditValue) {
    if (AEditValue.isEmpty())
        return {};
    return norvik::TDateTimeUtils::toDate(DateValue(AEditValue))
        .toString(platform::SystemFormats::current().shortDateFormat);
}

norvik::TDateTime TFeedbackWizardState::DateValue(const Variant& AEditValue) {
    return norvik::VarToDoubleDef(AEditValue, 0);
}

void TFeedbackWizardState::LoadConfig(ITherapistSource& ASource, const InvNamedValuesPtr& AConfig) {
    FTPTs = ASource.AllTherapists();
    FTPT = FTPTs.isEmpty() ? TnvNamedValues::Create() : FTPTs.first();
    FConfig = AConfig ? AConfig : TnvNamedValues::Create();
    FTPTIndex = 0;
}

void TFeedbackWizardState::ShowTherapist(int AIndex) {
    if (AIndex >= 0 && AIndex < FTPTs.size())
        ShowTherapistRow(*FTPTs.at(AIndex));
}

void TFeedbackWizardState::ShowTherapistRow(const norvik::InvNamedValues& ARow) {
    edtTHPTherapist = ARow.GetAsString(QStringLiteral("TPTZusatzText1"));
    edtTHPTherapistExtension = ARow.GetAsString(QStringLiteral("TPTZusatzText2"));
    edtTHPTherapistField = ARow.GetAsString(QStringLiteral("TPTDaMeFachgebiet"));
    edtTHPTherapistMailbox = ARow.GetAsString(QStringLiteral("TPTDaMeCode"));
}

void TFeedbackWizardState::ShowPreviousTherapist() {
    if (CanShowPreviousTherapist())
        --FTPTIndex;
    ShowTherapist(FTPTIndex);
}

void TFeedbackWizardState::ShowNextTherapist() {
    if (CanShowNextTherapist())
        ++FTPTIndex;
    ShowTherapist(FTPTIndex);
}
