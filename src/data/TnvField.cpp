#include "TnvField.h"

#include "FieldTypeKinds.h"

namespace norvik {

bool TnvField::IsBlob() const {
    return FieldTypeKinds::IsBlobKind(FDataType);
}

QString TnvField::AsString() const {
    return IsNull() ? QString() : FValue.toString();
}

qint32 TnvField::AsInteger() const {
    return IsNull() ? 0 : FValue.toInt();
}

qint64 TnvField::AsLargeInt() const {
    return IsNull() ? 0 : FValue.toInt64();
}

double TnvField::AsFloat() const {
    return IsNull() ? 0 : FValue.toDouble();
}

TDateTime TnvField::AsDateTime() const {
    return IsNull() ? 0 : FValue.toDate();
}

bool TnvField::AsBoolean() const {
    return IsNull() ? false : FValue.toBool();
}

QByteArray TnvField::AsBytes() const {
    if (IsNull())
        return {};
    return FValue.valueType() == VarType::Bytes ? FValue.toBytes() : FValue.toString().toUtf8();
}

} // namespace norvik
