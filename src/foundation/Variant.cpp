#include "Variant.h"

#include "Overloaded.h"
#include "SystemFormats.h"
#include "TDateTimeUtils.h"
#include "WholeNumberText.h"

#include <cmath>
#include <cstdio>
#include <limits>

namespace norvik {

namespace {

bool fitsInt64(double value) {
    return value >= -9223372036854775808.0 && value < 9223372036854775808.0;
}

// banker's rounding, as the processor rounds by default
double roundHalfEven(double value) {
    return std::nearbyint(value);
}

// Float text with the system's decimal separator and an optional exponent, blanks allowed
// around it; thousands separators are not.
bool parseSystemFloat(const QString& text, double& result) {
    const QChar decimal = platform::SystemFormats::current().decimalSeparator;
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty())
        return false;
    QByteArray plain;
    plain.reserve(trimmed.size());
    int i = 0;
    const int n = trimmed.size();
    auto digitsFrom = [&](int from) {
        int j = from;
        while (j < n && trimmed.at(j) >= u'0' && trimmed.at(j) <= u'9')
            plain.append(char(trimmed.at(j++).unicode()));
        return j - from;
    };
    if (trimmed.at(0) == u'-' || trimmed.at(0) == u'+')
        plain.append(char(trimmed.at(i++).unicode()));
    int mantissaDigits = digitsFrom(i);
    i += mantissaDigits;
    if (i < n && trimmed.at(i) == decimal) {
        plain.append('.');
        const int fraction = digitsFrom(++i);
        i += fraction;
        mantissaDigits += fraction;
    }
    if (mantissaDigits == 0)
        return false;
    if (i < n && (trimmed.at(i) == u'e' || trimmed.at(i) == u'E')) {
        plain.append('e');
        ++i;
        if (i < n && (trimmed.at(i) == u'-' || trimmed.at(i) == u'+'))
            plain.append(char(trimmed.at(i++).unicode()));
        const int exponent = digitsFrom(i);
        if (exponent == 0)
            return false;
        i += exponent;
    }
    if (i != n)
        return false;
    char* end = nullptr;
    result = std::strtod(plain.constData(), &end);
    return end == plain.constData() + plain.size() && std::isfinite(result);
}

bool parseBoolText(const QString& text, bool& result) {
    const QString trimmed = text.trimmed();
    if (trimmed.compare(u"True", Qt::CaseInsensitive) == 0) {
        result = true;
        return true;
    }
    if (trimmed.compare(u"False", Qt::CaseInsensitive) == 0) {
        result = false;
        return true;
    }
    double number = 0;
    if (parseSystemFloat(trimmed, number)) {
        result = number != 0;
        return true;
    }
    return false;
}

QString varTypeName(VarType type) {
    switch (type) {
    case VarType::Unassigned:
        return QStringLiteral("Empty");
    case VarType::Null:
        return QStringLiteral("Null");
    case VarType::Boolean:
        return QStringLiteral("Boolean");
    case VarType::Integer:
        return QStringLiteral("Integer");
    case VarType::Int64:
        return QStringLiteral("Int64");
    case VarType::Double:
        return QStringLiteral("Double");
    case VarType::Currency:
        return QStringLiteral("Currency");
    case VarType::Date:
        return QStringLiteral("Date");
    case VarType::String:
        return QStringLiteral("String");
    case VarType::UString:
        return QStringLiteral("UnicodeString");
    case VarType::Bytes:
        return QStringLiteral("Array Byte");
    case VarType::ByRef:
        return QStringLiteral("ByRef");
    case VarType::JSON:
        return QStringLiteral("JSONVariant");
    }
    return QStringLiteral("Unknown");
}

// The exact digits of the scaled amount, the fraction without trailing zeros. Going through
// a double would show its binary error ("1,234499999999999931" for 1,2345).
QString currencyText(Currency value, QChar decimalSeparator) {
    const bool negative = value.scaled < 0;
    const quint64 magnitude = negative ? 0 - quint64(value.scaled) : quint64(value.scaled);
    QString text = negative ? QStringLiteral("-") : QString();
    text += QString::number(magnitude / Currency::Scale);
    QString fraction = QStringLiteral("%1").arg(magnitude % Currency::Scale, 4, 10, QLatin1Char('0'));
    while (fraction.endsWith(QLatin1Char('0')))
        fraction.chop(1);
    if (!fraction.isEmpty())
        text += decimalSeparator + fraction;
    return text;
}

QString conversionMessage(VarType from, VarType to) {
    return QStringLiteral("Could not convert variant of type (%1) into type (%2)")
        .arg(varTypeName(from), varTypeName(to));
}

} // namespace

Currency Currency::fromDouble(double value) {
    const double scaledValue = roundHalfEven(value * Scale);
    if (!fitsInt64(scaledValue))
        throw EVariantOverflowError(VarType::Double, VarType::Currency);
    return Currency{qint64(scaledValue)};
}

EVariantError::EVariantError(const QString& message)
    : std::runtime_error(message.toStdString()) {}

EVariantTypeCastError::EVariantTypeCastError(VarType from, VarType to)
    : EVariantError(conversionMessage(from, to)) {}

EVariantOverflowError::EVariantOverflowError(VarType from, VarType to)
    : EVariantError(QStringLiteral("Overflow while converting variant of type (%1) into type (%2)")
                        .arg(varTypeName(from), varTypeName(to))) {}

Variant Variant::null() {
    return Variant(Storage(NullTag{}));
}

Variant Variant::fromDate(TDateTime value) {
    return Variant(Storage(DateValue{value}));
}

Variant Variant::fromAnsiString(const QString& value) {
    return Variant(Storage(AnsiText{value}));
}

Variant Variant::byRef(Variant* target) {
    return Variant(Storage(Reference{target}));
}

VarType Variant::type() const {
    return VarType(m_value.index());
}

QString Variant::typeName(VarType type) {
    return varTypeName(type);
}

bool Variant::isEmpty() const {
    const VarType t = valueType();
    return t == VarType::Unassigned || t == VarType::Null;
}

bool Variant::isString() const {
    const VarType t = valueType();
    return t == VarType::String || t == VarType::UString;
}

bool Variant::isOrdinal() const {
    const VarType t = valueType();
    return t == VarType::Boolean || t == VarType::Integer || t == VarType::Int64;
}

bool Variant::isFloat() const {
    const VarType t = valueType();
    return t == VarType::Double || t == VarType::Currency;
}

const Variant& Variant::deref() const {
    const Variant* current = this;
    while (const auto* reference = std::get_if<Reference>(&current->m_value)) {
        if (!reference->target)
            break;
        current = reference->target;
    }
    return *current;
}

Variant& Variant::deref() {
    return const_cast<Variant&>(std::as_const(*this).deref());
}

Variant* Variant::refTarget() const {
    const auto* reference = std::get_if<Reference>(&m_value);
    return reference ? reference->target : nullptr;
}

void Variant::castError(VarType to) const {
    throw EVariantTypeCastError(type(), to);
}

double Variant::textToDouble(VarType to) const {
    const QString text = toString();
    double number = 0;
    if (parseSystemFloat(text, number))
        return number;
    bool truth = false;
    if (parseBoolText(text, truth))
        return truth ? -1 : 0;
    castError(to);
}

bool Variant::toBool() const {
    const Variant& v = deref();
    return std::visit(Overloaded{
                          [](std::monostate) { return false; },
                          [&](NullTag) -> bool { v.castError(VarType::Boolean); },
                          [](bool b) { return b; },
                          [](qint32 i) { return i != 0; },
                          [](qint64 i) { return i != 0; },
                          [](double d) { return d != 0; },
                          [](Currency c) { return c.scaled != 0; },
                          [](DateValue d) { return d.days != 0; },
                          [&](const AnsiText& s) -> bool {
                              bool result = false;
                              if (!parseBoolText(s.text, result))
                                  v.castError(VarType::Boolean);
                              return result;
                          },
                          [&](const QString& s) -> bool {
                              bool result = false;
                              if (!parseBoolText(s, result))
                                  v.castError(VarType::Boolean);
                              return result;
                          },
                          [&](const auto&) -> bool { v.castError(VarType::Boolean); },
                      },
                      v.m_value);
}

qint64 Variant::toInt64() const {
    const Variant& v = deref();
    auto fromDouble = [&](double d) -> qint64 {
        const double rounded = roundHalfEven(d);
        if (!fitsInt64(rounded))
            throw EVariantOverflowError(v.type(), VarType::Int64);
        return qint64(rounded);
    };
    auto fromText = [&](const QString& s) -> qint64 {
        qint64 result = 0;
        if (TryWholeNumberText(s, 64, result))
            return result;
        return fromDouble(v.textToDouble(VarType::Int64));
    };
    return std::visit(Overloaded{
                          [](std::monostate) -> qint64 { return 0; },
                          [&](NullTag) -> qint64 { v.castError(VarType::Int64); },
                          [](bool b) -> qint64 { return b ? -1 : 0; },
                          [](qint32 i) -> qint64 { return i; },
                          [](qint64 i) { return i; },
                          [&](double d) { return fromDouble(d); },
                          [](Currency c) -> qint64 { return qint64(roundHalfEven(c.toDouble())); },
                          [&](DateValue d) { return fromDouble(d.days); },
                          [&](const AnsiText& s) { return fromText(s.text); },
                          [&](const QString& s) { return fromText(s); },
                          [&](const auto&) -> qint64 { v.castError(VarType::Int64); },
                      },
                      v.m_value);
}

qint32 Variant::toInt() const {
    const qint64 wide = [this] {
        try {
            return toInt64();
        } catch (const EVariantOverflowError&) {
            throw EVariantOverflowError(valueType(), VarType::Integer);
        } catch (const EVariantTypeCastError&) {
            throw EVariantTypeCastError(valueType(), VarType::Integer);
        }
    }();
    if (wide < std::numeric_limits<qint32>::min() || wide > std::numeric_limits<qint32>::max())
        throw EVariantOverflowError(valueType(), VarType::Integer);
    return qint32(wide);
}

double Variant::toDouble() const {
    const Variant& v = deref();
    return std::visit(Overloaded{
                          [](std::monostate) { return 0.0; },
                          [&](NullTag) -> double { v.castError(VarType::Double); },
                          [](bool b) { return b ? -1.0 : 0.0; },
                          [](qint32 i) { return double(i); },
                          [](qint64 i) { return double(i); },
                          [](double d) { return d; },
                          [](Currency c) { return c.toDouble(); },
                          [](DateValue d) { return d.days; },
                          [&](const AnsiText&) { return v.textToDouble(VarType::Double); },
                          [&](const QString&) { return v.textToDouble(VarType::Double); },
                          [&](const auto&) -> double { v.castError(VarType::Double); },
                      },
                      v.m_value);
}

Currency Variant::toCurrency() const {
    const Variant& v = deref();
    switch (v.type()) {
    case VarType::Currency:
        return std::get<Currency>(v.m_value);
    case VarType::Integer:
    case VarType::Int64: {
        const qint64 whole = v.toInt64();
        if (whole > std::numeric_limits<qint64>::max() / Currency::Scale ||
            whole < std::numeric_limits<qint64>::min() / Currency::Scale)
            throw EVariantOverflowError(v.type(), VarType::Currency);
        return Currency{whole * Currency::Scale};
    }
    default:
        try {
            return Currency::fromDouble(v.toDouble());
        } catch (const EVariantTypeCastError&) {
            throw EVariantTypeCastError(v.type(), VarType::Currency);
        }
    }
}

TDateTime Variant::toDate() const {
    const Variant& v = deref();
    if (v.isString()) {
        TDateTime result = 0;
        if (TDateTimeUtils::tryParseSystemDateTime(v.toString(), result))
            return result;
        v.castError(VarType::Date);
    }
    try {
        return v.toDouble();
    } catch (const EVariantTypeCastError&) {
        throw EVariantTypeCastError(v.type(), VarType::Date);
    }
}

QString Variant::toString() const {
    const Variant& v = deref();
    const QChar decimal = platform::SystemFormats::current().decimalSeparator;
    return std::visit(Overloaded{
                          [](std::monostate) { return QString(); },
                          [&](NullTag) -> QString { v.castError(VarType::UString); },
                          [](bool b) { return b ? QStringLiteral("True") : QStringLiteral("False"); },
                          [](qint32 i) { return QString::number(i); },
                          [](qint64 i) { return QString::number(i); },
                          [&](double d) { return FloatToTextGeneral(d, 15, decimal); },
                          [&](Currency c) { return currencyText(c, decimal); },
                          [](DateValue d) { return TDateTimeUtils::toSystemText(d.days); },
                          [](const AnsiText& s) { return s.text; },
                          [](const QString& s) { return s; },
                          [](const TJSONVariantData& json) { return json.ToJSON(); },
                          [&](const auto&) -> QString { v.castError(VarType::UString); },
                      },
                      v.m_value);
}

QByteArray Variant::toBytes() const {
    const Variant& v = deref();
    if (const auto* bytes = std::get_if<QByteArray>(&v.m_value))
        return *bytes;
    if (v.type() == VarType::Unassigned)
        return {};
    v.castError(VarType::Bytes);
}

const TJSONVariantData* Variant::json() const {
    return std::get_if<TJSONVariantData>(&deref().m_value);
}

TJSONVariantData* Variant::json() {
    return std::get_if<TJSONVariantData>(&deref().m_value);
}

Variant Variant::value(const QString& name) const {
    const TJSONVariantData* data = json();
    if (!data)
        throw EVariantError(QStringLiteral("Invalid variant operation"));
    if (const Variant* element = data->ValueOf(name))
        return *element;
    return fromAnsiString(QString());
}

Variant Variant::valueRef(const QString& name) {
    TJSONVariantData* data = json();
    if (!data)
        throw EVariantError(QStringLiteral("Invalid variant operation"));
    if (Variant* element = data->ValueOf(name))
        return byRef(element);
    return fromAnsiString(QString());
}

void Variant::setValue(const QString& name, const Variant& value) {
    TJSONVariantData* data = json();
    if (!data)
        throw EVariantError(QStringLiteral("Invalid variant operation"));
    data->SetValue(name, value);
}

bool Variant::operator==(const Variant& other) const {
    return m_value == other.m_value;
}

QString FloatToTextGeneral(double value, int precision, QChar decimalSeparator) {
    if (std::isnan(value))
        return QStringLiteral("NAN");
    if (std::isinf(value))
        return value < 0 ? QStringLiteral("-INF") : QStringLiteral("INF");
    if (value == 0)
        return QStringLiteral("0");

    // the significant digits and the decimal exponent, rounded to the precision
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.*e", precision - 1, std::fabs(value));
    const QByteArray scientific(buffer);
    const int ePos = scientific.indexOf('e');
    QByteArray digits = scientific.left(ePos);
    digits.remove(1, 1); // the point after the first digit
    const int exponent = scientific.mid(ePos + 1).toInt();
    while (digits.size() > 1 && digits.endsWith('0'))
        digits.chop(1);

    QString text = value < 0 ? QStringLiteral("-") : QString();
    const bool useScientific = exponent + 1 > precision || std::fabs(value) < 0.00001;
    if (useScientific) {
        text += QLatin1Char(digits.at(0));
        if (digits.size() > 1)
            text += decimalSeparator + QString::fromLatin1(digits.mid(1));
        text += QLatin1Char('E') + QString::number(exponent);
        return text;
    }
    if (exponent < 0) {
        text += QLatin1Char('0') + decimalSeparator + QString(-exponent - 1, QLatin1Char('0')) +
                QString::fromLatin1(digits);
        return text;
    }
    const int integerDigits = exponent + 1;
    if (digits.size() <= integerDigits) {
        text += QString::fromLatin1(digits) + QString(integerDigits - digits.size(), QLatin1Char('0'));
        return text;
    }
    text += QString::fromLatin1(digits.left(integerDigits)) + decimalSeparator +
            QString::fromLatin1(digits.mid(integerDigits));
    return text;
}

} // namespace norvik
