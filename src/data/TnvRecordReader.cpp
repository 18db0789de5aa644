#include "TnvRecordReader.h"

#include "InvDBConnection.h"
#include "TnvDataSet.h"
#include "TnvNamedValue.h"
#include "TnvNamedValues.h"

namespace norvik {

InvNamedValuesPtr TnvRecordReader::FromDataSet(TnvDataSet& ADataSet) {
    auto values = TnvNamedValues::Create();
    if (!ADataSet.Active() || ADataSet.Eof())
        return values;
    for (int i = 0; i < ADataSet.FieldCount(); ++i) {
        const TnvField& field = ADataSet.Fields(i);
        values->Add(field.FieldName(), field.Value());
        if (TnvNamedValue* entry = values->FindValue(field.FieldName()))
            entry->SetFieldType(field.DataType());
    }
    return values;
}

InvNamedValuesPtr TnvRecordReader::ReadRecord(InvDBConnection& AConn, const QString& ASQL,
                                              const TnvParams* AParams) {
    const auto query = AConn.PSOpenQuery(ASQL, AParams);
    return FromDataSet(*query);
}

} // namespace norvik
