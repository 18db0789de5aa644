#pragma once

#include <QtGlobal>

namespace norvik {

// The data type of a database field as the data layer reports it.
enum TFieldType : quint8 {
    ftUnknown,
    ftString,
    ftSmallint,
    ftInteger,
    ftWord,
    ftBoolean,
    ftFloat,
    ftCurrency,
    ftBCD,
    ftDate,
    ftTime,
    ftDateTime,
    ftBytes,
    ftVarBytes,
    ftAutoInc,
    ftBlob,
    ftMemo,
    ftGraphic,
    ftFmtMemo,
    ftFixedChar,
    ftWideString,
    ftLargeint,
    ftGuid,
    ftTimeStamp,
    ftFMTBcd,
    ftFixedWideChar,
    ftWideMemo,
    ftLongWord,
    ftShortint,
    ftByte,
    ftExtended,
    ftSingle,
};

} // namespace norvik
