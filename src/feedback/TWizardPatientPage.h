#pragma once

#include <QWidget>

class QComboBox;
class QLineEdit;

namespace norvik {
class TnvValidatedEdit;
}

// Page 0 of the wizard, crdPatient: the quick search, the patient's data and insurance, and
// the note on what must be filled in.
class TWizardPatientPage : public QWidget {
    Q_OBJECT

public:
    explicit TWizardPatientPage(QWidget* AParent = nullptr);

    QLineEdit* edtPATSearch;
    norvik::TnvValidatedEdit* edtPATLastname;
    norvik::TnvValidatedEdit* edtPATFirstname;
    QLineEdit* edtPATStreet;
    QLineEdit* edtPATZIPCity;
    QComboBox* edtPATGender;
    QComboBox* edtPATTitle1;
    QComboBox* edtPATTitle2;
    norvik::TnvValidatedEdit* edtPATSVNr;
    QLineEdit* edtPATAssurance;

private:
    void CreateControls();
    void Arrange();
    void SetTabOrder();
};
