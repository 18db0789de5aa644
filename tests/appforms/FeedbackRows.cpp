#include "FeedbackRows.h"

#include "InvDBConnection.h"

using norvik::Variant;

namespace feedbackrows {

void Clear(norvik::InvDBConnection& AConnection) {
    AConnection.PSExecuteStatement(QStringLiteral("DELETE FROM tblDokumente"));
    AConnection.PSExecuteStatement(QStringLiteral("DELETE FROM tblPatienten"));
}

void AddPatient(norvik::InvDBConnection& AConnection, qint64 AID, const QString& AFirstName,
                const QString& ALastName) {
    norvik::TnvParams params;
    params.AddValue(Variant(AID));
    params.AddValue(Variant(AFirstName));
    params.AddValue(Variant(ALastName));
    AConnection.PSExecuteStatement(
        QStringLiteral("INSERT INTO tblPatienten (PATID, PATVorname, PATNachname, PATGeschlecht) "
                       "VALUES (?, ?, ?, 'W')"),
        &params);
}

void AddDocument(norvik::InvDBConnection& AConnection, qint64 AID, qint64 APatientID, const QString& ADate,
                 const QString& ATherapist) {
    norvik::TnvParams params;
    params.AddValue(Variant(AID));
    params.AddValue(Variant(APatientID));
    params.AddValue(Variant(ADate));
    params.AddValue(Variant(ATherapist));
    AConnection.PSExecuteStatement(
        QStringLiteral("INSERT INTO tblDokumente (DOCID, PATID, DOCDatum, DOCDiagTherapeutName, DOCThema) "
                       "VALUES (?, ?, ?, ?, 'Rückmeldung')"),
        &params);
}

void DeletePatient(norvik::InvDBConnection& AConnection, qint64 AID) {
    norvik::TnvParams params;
    params.AddValue(Variant(AID));
    AConnection.PSExecuteStatement(QStringLiteral("DELETE FROM tblPatienten WHERE PATID = ?"), &params);
}

} // namespace feedbackrows
