#include "FieldTypeKinds.h"

namespace norvik {

bool FieldTypeKinds::IsBinary(TFieldType type) {
    return type == ftBlob || type == ftGraphic || type == ftBytes || type == ftVarBytes;
}

bool FieldTypeKinds::IsBlobKind(TFieldType type) {
    return IsBinary(type) || IsMemo(type);
}

bool FieldTypeKinds::IsMemo(TFieldType type) {
    return type == ftMemo || type == ftFmtMemo || type == ftWideMemo;
}

bool FieldTypeKinds::IsWide(TFieldType type) {
    return type == ftWideString || type == ftFixedWideChar || type == ftWideMemo;
}

bool FieldTypeKinds::IsText(TFieldType type) {
    return type == ftString || type == ftWideString || type == ftFixedChar || type == ftFixedWideChar;
}

bool FieldTypeKinds::IsInteger(TFieldType type) {
    switch (type) {
    case ftSmallint:
    case ftInteger:
    case ftWord:
    case ftAutoInc:
    case ftLargeint:
    case ftShortint:
    case ftByte:
    case ftLongWord:
        return true;
    default:
        return false;
    }
}

bool FieldTypeKinds::IsFloat(TFieldType type) {
    switch (type) {
    case ftFloat:
    case ftCurrency:
    case ftBCD:
    case ftFMTBcd:
    case ftExtended:
    case ftSingle:
        return true;
    default:
        return false;
    }
}

bool FieldTypeKinds::IsDateTime(TFieldType type) {
    return type == ftDate || type == ftTime || type == ftDateTime || type == ftTimeStamp;
}

TFieldType FieldTypeKinds::FromVariant(const Variant& value) {
    switch (value.valueType()) {
    case VarType::Boolean:
        return ftBoolean;
    case VarType::Integer:
        return ftInteger;
    case VarType::Int64:
        return ftLargeint;
    case VarType::Double:
        return ftFloat;
    case VarType::Currency:
        return ftCurrency;
    case VarType::Date:
        return ftDateTime;
    case VarType::String:
        return ftString;
    case VarType::UString:
        return ftWideString;
    case VarType::Bytes:
        return ftBlob;
    default:
        return ftUnknown;
    }
}

TFieldType FieldTypeKinds::FromSQLiteDeclaration(const QString& declaredType) {
    const QString lower = declaredType.toLower();
    const QString name = lower.section(QLatin1Char('('), 0, 0).trimmed();
    if (lower.contains(QLatin1String("varchar")) || name == QLatin1String("char"))
        return ftString;
    if (name == QLatin1String("datetime") || name == QLatin1String("smalldatetime"))
        return ftDateTime;
    if (name == QLatin1String("float") || name == QLatin1String("numeric"))
        return ftFloat;
    if (name == QLatin1String("int") || name == QLatin1String("bigint") || name == QLatin1String("smallint"))
        return ftInteger;
    if (name == QLatin1String("image"))
        return ftBlob;
    if (name == QLatin1String("text"))
        return ftMemo;
    if (name == QLatin1String("money"))
        return ftCurrency;
    if (name == QLatin1String("timestamp"))
        return ftTimeStamp;
    return ftString;
}

int FieldTypeKinds::SizeFromSQLiteDeclaration(const QString& declaredType, bool* ok) {
    if (ok)
        *ok = true;
    const qsizetype open = declaredType.indexOf(QLatin1Char('('));
    if (open < 0)
        return 1;
    const qsizetype close = declaredType.indexOf(QLatin1Char(')'), open);
    const QString inside = declaredType.mid(open + 1, close < 0 ? -1 : close - open - 1).trimmed();
    bool isNumber = false;
    const int size = inside.toInt(&isNumber);
    if (ok)
        *ok = isNumber;
    return isNumber ? size : 1;
}

} // namespace norvik
