#pragma once

#include "ITherapistSource.h"
#include "InvNamedValues.h"
#include "TComboBoxState.h"
#include "TQuestionCatalogue.h"
#include "TnvNamedValues.h"
#include "Variant.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <memory>

// What the feedback wizard holds apart from its widgets: the texts of its edits, the
// selections of its combo boxes, the catalogue with its answers, the memo, and the rows the
// export works from. The members are named after the controls that show them, so the form
// binds each widget to the member of its own name.
class TFeedbackWizardState {
public:
    template <class TMember> struct TNamedMember {
        QString Name;
        TMember TFeedbackWizardState::*Member;
    };
    using TTextEdit = TNamedMember<QString>;
    using TComboBox = TNamedMember<TComboBoxState>;
    using TDateEdit = TNamedMember<norvik::Variant>;

    static const QStringList& GenderItems();
    static const QStringList& TitleItems();

    TFeedbackWizardState();

    // page 0: the patient
    QString edtPATLastname;
    QString edtPATFirstname;
    QString edtPATStreet;
    QString edtPATZIPCity;
    TComboBoxState edtPATGender;
    TComboBoxState edtPATTitle1;
    TComboBoxState edtPATTitle2;
    QString edtPATSVNr;
    QString edtPATAssurance;

    // page 1: the referring physician, the referral and the therapist
    QString edtDOCName;
    QString edtDOCStreet;
    QString edtDOCZIPCity;
    QString edtDOCMailbox;
    QString edtDOCSalutation;
    QString edtTHPDiagnosis;
    // the edit values of the two date edits: Null or a date
    norvik::Variant edtTHPStart;
    norvik::Variant edtTHPEnd;
    QString edtTHPTherapist;
    QString edtTHPTherapistExtension;
    QString edtTHPTherapistField;
    QString edtTHPTherapistMailbox;

    // page 2: the catalogue, whose answer boxes hold the answers, and the remark behind them
    TQuestionCatalogue FCatalogue;
    QString memContent;

    // rows of tblTherapeuten, the one shown, and the active therapist
    QList<norvik::InvNamedValuesPtr> FTPTs;
    int FTPTIndex = 0;
    norvik::InvNamedValuesPtr FTPT;
    // the settings block "DAME" of the user "SYSTEM"
    norvik::InvNamedValuesPtr FConfig;
    // the merge fields of the letter; never cleared, so a value once written stays
    std::shared_ptr<norvik::TnvNamedValues> FValues;
    norvik::InvNamedValuesPtr FPAT;
    norvik::InvNamedValuesPtr FADR;
    norvik::InvNamedValuesPtr FExport;
    // patient, physician and document are stored only while set; the therapist always is
    bool FStandaloneMode = true;

    static const QList<TTextEdit>& TextEdits();
    static const QList<TComboBox>& ComboBoxes();
    static const QList<TDateEdit>& DateEdits();
    // what the control of that name shows: a date edit its date as "dd.mm.yyyy" or nothing;
    // empty for an unknown name
    QString DisplayText(const QString& AControlName) const;
    static QString DateDisplayText(const norvik::Variant& AEditValue);
    // the day count of a date edit's value; 0 for an empty one
    static norvik::TDateTime DateValue(const norvik::Variant& AEditValue);

    // the therapists ordered by name, the first of them active; the configuration block as
    // given, or an empty one
    void LoadConfig(ITherapistSource& ASource, const norvik::InvNamedValuesPtr& AConfig);
    // copies the therapist at AIndex into the edits; FTPT stays as it is
    void ShowTherapist(int AIndex);
    // the name, job title, field and mailbox of a therapist row into the edits; missing
    // columns read as empty
    void ShowTherapistRow(const norvik::InvNamedValues& ARow);
    // both move FTPTIndex within the list and then show the row at it, also when it stood still
    void ShowPreviousTherapist();
    void ShowNextTherapist();
    bool CanShowPreviousTherapist() const { return FTPTIndex > 0; }
    bool CanShowNextTherapist() const { return FTPTIndex < FTPTs.size() - 1; }
    bool TherapistButtonsVisible() const { return FTPTs.size() > 1; }
};
