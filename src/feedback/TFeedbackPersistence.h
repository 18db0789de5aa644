#pragma once

#include "InvNamedValues.h"

#include <QString>

class TFeedbackWizardState;

namespace norvik {
class InvDBConnection;
}

// What a finished feedback leaves in the database: the therapist, the patient, the referring
// physician and the document. Rows are found by a name built from what the user typed, not
// by any outside key, so a retyped name makes a new row. Each write stands alone: there is no
// transaction, and a failure leaves what was written before it. Database errors pass to the
// caller.
class TFeedbackPersistence {
public:
    TFeedbackPersistence(TFeedbackWizardState& AState, norvik::InvDBConnection& AConn);

    // Inserts or updates the therapist of that display name with job title, field and
    // mailbox, and reads the row anew into FTPT. Runs whatever the mode.
    void SaveTPTToDatabase();
    // The patient by its search name, then the physician by its name, each inserted or
    // overwritten with what the wizard shows and read anew into FPAT and FADR. Only in
    // standalone mode.
    void SaveAddressesToDatabase();
    // A new row of tblDokumente with the bytes of the outbox file, for the patient and the
    // physician just stored; a repeated export gives another row. Only in standalone mode.
    void SaveContentToDatabase(const QString& AFileName);

    // "Lastname Firstname (ddmmyy)": both names trimmed, and the date of birth part of the
    // social insurance number, the six characters from the fifth on
    static QString PatientSearchName(const TFeedbackWizardState& AState);
    // the stored gender of the item index: Männlich 2, Weiblich 3, Unbestimmt 0, none 1
    static int GenderCode(int AItemIndex);

private:
    void SavePatient();
    void SaveAddress();
    // inserts the row when AKeyValue is 0, updates it otherwise; gives the row's key
    qint64 InsertOrUpdate(const QString& ATableName, const QString& AKeyField, qint64 AKeyValue,
                          const QStringList& AFieldNames, const QList<norvik::Variant>& AValues);
    // the row found by a text column; an empty list when there is none
    norvik::InvNamedValuesPtr RowByText(const QString& ATableName, const QString& AColumn,
                                        const QString& AText);
    norvik::InvNamedValuesPtr RowByID(const QString& ATableName, const QString& AKeyField, qint64 AID);
    static QByteArray FileBytes(const QString& AFileName);

    TFeedbackWizardState& FState;
    norvik::InvDBConnection& FConn;
};
