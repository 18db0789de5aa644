#include "TnvNamedValue.h"

#include "WholeNumberText.h"

namespace norvik {

TnvNamedValue::TnvNamedValue(const QString& AName, const Variant& AValue)
    : FName(AName)
    , FValue(AValue) {}

TnvNamedValueDataType TnvNamedValue::DataType() const {
    if (FObject)
        return nvObject;
    if (FClass)
        return nvClass;
    if (FPointer)
        return nvPointer;
    if (FInterface)
        return nvInterface;
    return nvVariant;
}

void TnvNamedValue::ApplyValueFrom(const TnvNamedValue& AValue) {
    FValue = AValue.FValue;
    FPointer = AValue.FPointer;
    FObject = AValue.FObject;
    FClass = AValue.FClass;
    FInterface = AValue.FInterface;
}

qint32 TnvNamedValue::AsInteger() const {
    return FValue.isEmpty() ? 0 : FValue.toInt();
}

qint64 TnvNamedValue::AsIdentifier() const {
    if (FValue.isEmpty())
        return 0;
    if (FValue.valueType() == VarType::String) {
        // narrow text is read leniently as a 32-bit number; wide text raises on bad text
        qint64 number = 0;
        return TryWholeNumberText(FValue.toString(), 32, number) ? number : 0;
    }
    return FValue.toInt64();
}

QString TnvNamedValue::AsString() const {
    return FValue.isNull() ? QString() : FValue.toString();
}

double TnvNamedValue::AsDouble() const {
    return FValue.isEmpty() ? 0 : FValue.toDouble();
}

Currency TnvNamedValue::AsCurrency() const {
    return FValue.isEmpty() ? Currency{} : FValue.toCurrency();
}

TDateTime TnvNamedValue::AsDateTime() const {
    return AsDouble();
}

bool TnvNamedValue::AsBoolean() const {
    return FValue.isEmpty() ? false : FValue.toBool();
}

QByteArray TnvNamedValue::AsBytes() const {
    return FValue.valueType() == VarType::Bytes ? FValue.toBytes() : QByteArray();
}

bool TnvNamedValue::IsNull() const {
    return FValue.isNull();
}

void TnvNamedValue::SetIsNull(bool /*AValue*/) {
    FValue = Variant::null();
}

} // namespace norvik
