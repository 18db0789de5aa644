#include "TnvNamedValue.h"

#include <limits>

namespace norvik {

namespace {

int hexDigitValue(char16_t c) {
    if (c >= u'0' && c <= u'9')
        return c - u'0';
    if (c >= u'a' && c <= u'f')
        return c - u'a' + 10;
    if (c >= u'A' && c <= u'F')
        return c - u'A' + 10;
    return -1;
}

// A whole 32-bit number as text: blanks in front, a sign, decimal digits or hexadecimal
// digits behind "$" or "0x" (which may fill all 32 bits), nothing behind. Anything else,
// an overflow included, gives the default.
qint32 textToInt32Default(const QString& text, qint32 defaultValue) {
    qsizetype i = 0;
    const qsizetype n = text.size();
    while (i < n && text.at(i).unicode() <= u' ')
        ++i;
    bool negative = false;
    if (i < n && (text.at(i) == u'-' || text.at(i) == u'+'))
        negative = text.at(i++) == u'-';
    int base = 10;
    if (i < n && text.at(i) == u'$') {
        base = 16;
        ++i;
    } else if (i + 1 < n && text.at(i) == u'0' && (text.at(i + 1) == u'x' || text.at(i + 1) == u'X')) {
        base = 16;
        i += 2;
    }
    if (i >= n)
        return defaultValue;
    const quint64 limit = base == 16 ? 0xFFFFFFFFull : quint64(std::numeric_limits<qint32>::max()) + negative;
    quint64 value = 0;
    for (; i < n; ++i) {
        const int digit = hexDigitValue(text.at(i).unicode());
        if (digit < 0 || digit >= base)
            return defaultValue;
        value = value * quint64(base) + quint64(digit);
        if (value > limit)
            return defaultValue;
    }
    const auto bits = quint32(negative ? 0 - value : value);
    return qint32(bits);
}

} // namespace

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
    if (FValue.valueType() == VarType::String)
        return textToInt32Default(FValue.toString(), 0);
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
