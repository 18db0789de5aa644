#pragma once

#include <QWidget>

class QLineEdit;
class QToolButton;
class TOptionalDateEdit;

namespace norvik {
class TnvValidatedEdit;
}

// Page 1 of the wizard, crdDoctorReferral: the quick search for the referring physician, the
// physician, the referral with diagnosis and period, the treating therapist with the buttons
// to browse the stored therapists, and the notes on what must be filled in.
class TWizardReferralPage : public QWidget {
    Q_OBJECT

public:
    explicit TWizardReferralPage(QWidget* AParent = nullptr);

    QLineEdit* edtADRSearch;
    QToolButton* cmdChangeADRSearchProvider;
    norvik::TnvValidatedEdit* edtDOCName;
    norvik::TnvValidatedEdit* edtDOCStreet;
    norvik::TnvValidatedEdit* edtDOCZIPCity;
    norvik::TnvValidatedEdit* edtDOCMailbox;
    QLineEdit* edtDOCSalutation;
    norvik::TnvValidatedEdit* edtTHPDiagnosis;
    TOptionalDateEdit* edtTHPStart;
    TOptionalDateEdit* edtTHPEnd;
    norvik::TnvValidatedEdit* edtTHPTherapist;
    norvik::TnvValidatedEdit* edtTHPTherapistExtension;
    norvik::TnvValidatedEdit* edtTHPTherapistField;
    norvik::TnvValidatedEdit* edtTHPTherapistMailbox;
    QToolButton* cmdPrevTPT;
    QToolButton* cmdNextTPT;

private:
    void CreatePhysicianControls();
    void CreateReferralControls();
    void Arrange();
    QWidget* TherapistRow();
};
