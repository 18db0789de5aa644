#include "TDBTherapistSource.h"

#include "InvDBConnection.h"
#include "StringUtils.h"
#include "TnvRecordReader.h"

using norvik::InvNamedValuesPtr;

TDBTherapistSource::TDBTherapistSource(norvik::InvDBConnection& AConn)
    : FConn(AConn) {}

QList<InvNamedValuesPtr> TDBTherapistSource::AllTherapists() {
    QList<InvNamedValuesPtr> rows;
    FConn.PSForEachRecord(
        QStringLiteral("SELECT * FROM tblTherapeuten ORDER BY TPTZusatzText1"),
        [&rows](norvik::TnvDataSet& ARow) { rows.append(norvik::TnvRecordReader::FromDataSet(ARow)); });
    return rows;
}

InvNamedValuesPtr TDBTherapistSource::TherapistByName(const QString& AName) {
    return norvik::TnvRecordReader::ReadRecord(
        FConn, QStringLiteral("SELECT * FROM tblTherapeuten WHERE TPTZusatzText1 = '%1'")
                   .arg(norvik::QuotedSQLText(AName)));
}
