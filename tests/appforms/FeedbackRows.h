#pragma once

#include <QString>

namespace norvik {
class InvDBConnection;
}

// Patients and documents written straight into the sandbox database, as the wizard would
// leave them after an export.
namespace feedbackrows {

void Clear(norvik::InvDBConnection& AConnection);
void AddPatient(norvik::InvDBConnection& AConnection, qint64 AID, const QString& AFirstName,
                const QString& ALastName);
// the date as SQLite keeps it: "yyyy-mm-dd hh:nn:ss"
void AddDocument(norvik::InvDBConnection& AConnection, qint64 AID, qint64 APatientID, const QString& ADate,
                 const QString& ATherapist);
void DeletePatient(norvik::InvDBConnection& AConnection, qint64 AID);

} // namespace feedbackrows
