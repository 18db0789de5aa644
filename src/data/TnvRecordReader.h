#pragma once

#include "InvNamedValues.h"

#include <QString>

namespace norvik {

class InvDBConnection;
class TnvDataSet;
class TnvParams;

// Turns a database row into a named-value list: one entry per field, named after the field,
// with the field's type noted. A missing row gives an empty list, whose key then reads 0.
class TnvRecordReader {
public:
    // the current row of an open data set; empty at the end of the result
    static InvNamedValuesPtr FromDataSet(TnvDataSet& ADataSet);
    // the first row of a query such as "SELECT * FROM tblPatienten WHERE PATID=?"
    static InvNamedValuesPtr ReadRecord(InvDBConnection& AConn, const QString& ASQL,
                                        const TnvParams* AParams = nullptr);
};

} // namespace norvik
