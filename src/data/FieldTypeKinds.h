#pragma once

#include "TFieldType.h"
#include "Variant.h"

#include <QString>

namespace norvik {

// Groups of field types as the data layer treats them, and the field type of a column as
// SQLite declares it.
class FieldTypeKinds {
public:
    static bool IsBinary(TFieldType type);   // blob, graphic, bytes
    static bool IsBlobKind(TFieldType type); // the binary ones and the memo types
    static bool IsMemo(TFieldType type);
    static bool IsWide(TFieldType type); // wide string, fixed wide char, wide memo
    static bool IsText(TFieldType type); // string, wide string and the fixed forms
    static bool IsInteger(TFieldType type);
    static bool IsFloat(TFieldType type);
    static bool IsDateTime(TFieldType type); // date, time, date-time, time stamp
    static TFieldType FromVariant(const Variant& value);

    // the type for a declared column type such as "VARCHAR(80)", "DATETIME" or "INT";
    // what SQLite does not declare is text
    static TFieldType FromSQLiteDeclaration(const QString& declaredType);
    // the number in the first brackets of a declared type, or 1 without brackets;
    // ok is false when the brackets hold something other than a number
    static int SizeFromSQLiteDeclaration(const QString& declaredType, bool* ok = nullptr);
};

} // namespace norvik
