#include "FormatUtils.h"

#include "DateUtils.h"
#include "FormatText.h"
#include "SystemFormats.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace norvik {

namespace {

TextEvaluator& registeredEvaluator() {
    static TextEvaluator evaluator;
    return evaluator;
}

bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

// The leading number of a trimmed, non-empty text, thousands separators taken out; nothing
// when the text begins with something no number begins with.
std::optional<QString> leadingNumber(const QString& text) {
    const auto& formats = platform::SystemFormats::current();
    const QChar first = text.at(0);
    if (!QStringView(u"-0123456789,.").contains(first))
        return std::nullopt;
    if (text.size() > 1 && QStringView(u"-,.:").contains(first)) {
        const bool signedFraction = first == u'-' && text.at(1) == formats.decimalSeparator;
        const bool digitFollows =
            signedFraction ? text.size() > 2 && isDigit(text.at(2)) : isDigit(text.at(1));
        if (!digitFollows)
            return std::nullopt;
    }
    QString number = text;
    number.remove(formats.thousandSeparator);
    qsizetype end = 0;
    while (end < number.size() &&
           (QStringView(u"0123456789,.:").contains(number.at(end)) || (end == 0 && number.at(0) == u'-')))
        ++end;
    number.truncate(end);
    return number;
}

// "-12,5": an optional minus, digits with at most one decimal separator, one digit at least
bool decimalTextToDouble(const QString& text, double& value) {
    const QChar decimal = platform::SystemFormats::current().decimalSeparator;
    QByteArray plain;
    bool separatorSeen = false;
    bool digitSeen = false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (i == 0 && c == u'-') {
            plain.append('-');
        } else if (c == decimal && !separatorSeen) {
            separatorSeen = true;
            plain.append('.');
        } else if (isDigit(c)) {
            digitSeen = true;
            plain.append(char(c.unicode()));
        } else {
            return false;
        }
    }
    if (!digitSeen)
        return false;
    value = std::strtod(plain.constData(), nullptr);
    return std::isfinite(value);
}

int evaluatedText(const QString& text, double& value) {
    QString expression = text.mid(1);
    expression.remove(QLatin1Char('.'));
    expression.replace(QLatin1Char(','), QLatin1Char('.'));
    try {
        double result = 0;
        if (registeredEvaluator()(expression, result) && std::isfinite(result)) {
            value = result;
            return TextParsed;
        }
    } catch (const std::exception&) {
        // an expression that does not reckon is a text that is no number
    }
    return TextNotParsed;
}

// The number text as a double of the system's format; the result codes of TryTextToFloat.
int parsedNumber(const QString& AText, double& value) {
    value = 0;
    const QString text = AText.trimmed();
    if (text.isEmpty())
        return TextEmpty;
    if (text.startsWith(QLatin1Char('=')) && registeredEvaluator())
        return evaluatedText(text, value);
    const std::optional<QString> number = leadingNumber(text);
    if (!number || !decimalTextToDouble(*number, value)) {
        value = 0;
        return TextNotParsed;
    }
    return TextParsed;
}

QString dateFormatOfKind(const QString& format, int kind, bool isShort) {
    switch (kind) {
    case FormatKind::Date:
    case FormatKind::DateAlso:
        return QStringLiteral("dd.mm.yyyy");
    case FormatKind::DateMonthName:
        return isShort ? QStringLiteral("dd.mm.yyyy") : QStringLiteral("dd. mmm yyyy");
    case FormatKind::SystemLongDate:
        return QStringLiteral("dddddd");
    case FormatKind::DateTime:
    // "c" writes what TDateTimeUtils::toSystemText writes, and checks the value's range
    case FormatKind::DateTimeText:
        return QStringLiteral("c");
    case FormatKind::CallersFormat:
        return format;
    default:
        return QStringLiteral("ddddd");
    }
}

bool isNumberKind(VarType type) {
    return type == VarType::Integer || type == VarType::Int64 || type == VarType::Double ||
           type == VarType::Currency || type == VarType::Date;
}

} // namespace

const QString& TruthList() {
    static const QString list = QStringLiteral("[J][JA][Y][YES][X][1][-1][T][TRUE][W][WAHR][E][EIN]");
    return list;
}

bool IsTrueText(const QString& AText) {
    return TruthList().contains(QLatin1Char('[') + AText.toUpper() + QLatin1Char(']'));
}

void RegisterTextEvaluator(TextEvaluator AEvaluator) {
    registeredEvaluator() = std::move(AEvaluator);
}

int TryTextToFloat(const QString& AText, double& AValue) {
    return parsedNumber(AText, AValue);
}

int TryTextToCurrency(const QString& AText, Currency& AValue) {
    AValue = Currency{};
    double value = 0;
    const int result = parsedNumber(AText, value);
    if (result != TextParsed)
        return result;
    try {
        AValue = Currency::fromDouble(value);
    } catch (const EVariantError&) {
        return TextNotParsed;
    }
    return TextParsed;
}

TDateTime TextToDate(const QString& AText) {
    TDateTime value = 0;
    return TryTextToDate(AText, value, false) == 1 ? value : 0;
}

double TextToFloat(const QString& AText) {
    double value = 0;
    TryTextToFloat(AText, value);
    return value;
}

double VarToDoubleDef(const Variant& AValue, double ADefault) {
    return isNumberKind(AValue.valueType()) ? AValue.toDouble() : ADefault;
}

const QString& UnknownValueMessage() {
    static const QString message = QStringLiteral("Unbekannter Wert");
    return message;
}

const QString& FormatErrorText() {
    static const QString text = QStringLiteral("#Fehler#");
    return text;
}

QString FormatTextValue(const QString& AFormat, int AKind, const Variant& AValue) {
    try {
        const QString text = AValue.toString();
        switch (AKind) {
        case FormatKind::UpperCase:
            return text.toUpper();
        case FormatKind::LowerCase:
            return text.toLower();
        case FormatKind::YesNoLetter:
            return IsTrueText(text) ? QStringLiteral("J") : QStringLiteral("N");
        case FormatKind::YesNoWord:
            return IsTrueText(text) ? QStringLiteral("Ja") : QStringLiteral("Nein");
        case FormatKind::CallersFormat:
            return FormatText(AFormat, {AValue});
        default:
            return text;
        }
    } catch (const std::exception&) {
        return FormatErrorText();
    }
}

QString FormatNumberValue(const QString& AFormat, int AKind, const Variant& AValue, int ADecimals) {
    try {
        switch (AKind) {
        case FormatKind::WholeNumber:
            return FormatText(QStringLiteral("%.0n"), {AValue});
        case FormatKind::Decimals:
        case FormatKind::DecimalsAlso:
            return FormatText(QStringLiteral("%.%1n").arg(std::max(ADecimals, 0)), {AValue});
        case FormatKind::Int64Digits:
        case FormatKind::Int64DigitsAlso:
            return QString::number(AValue.toInt64());
        case FormatKind::Scientific:
            return FormatText(QStringLiteral("%e"), {AValue});
        case FormatKind::CallersFormat:
            return FormatText(AFormat, {AValue});
        default:
            return AValue.toString();
        }
    } catch (const std::exception&) {
        return FormatErrorText();
    }
}

QString FormatDateValue(const QString& AFormat, int AKind, const Variant& AValue, bool AShort) {
    try {
        if (AValue.isEmpty() || (AValue.isString() && AValue.toString().trimmed().isEmpty()))
            return {};
        const TDateTime value = AValue.toDate();
        if (!(value > 0))
            return {};
        return FormatDateTimeText(dateFormatOfKind(AFormat, AKind, AShort), value);
    } catch (const std::exception&) {
        return FormatErrorText();
    }
}

QString FormatValue(const QString& AFormat, int AKind, const Variant& AValue, int ADecimals, bool AShort) {
    switch (AValue.valueType()) {
    case VarType::Integer:
    case VarType::Int64:
        return FormatNumberValue(AFormat, AKind, AValue, ADecimals);
    case VarType::Double:
    case VarType::Currency:
        if (AKind == FormatKind::DateTimeText)
            return FormatDateValue(AFormat, AKind, Variant::fromDate(AValue.toDouble()), AShort);
        return FormatNumberValue(AFormat, AKind, AValue, ADecimals);
    case VarType::String:
    case VarType::UString:
        return FormatTextValue(AFormat, AKind, AValue);
    case VarType::Boolean:
        return AValue.toBool() ? QStringLiteral("True") : QStringLiteral("False");
    case VarType::Date:
        if (AValue.toDate() > 0)
            return FormatDateValue(AFormat, AKind, AValue, AShort);
        return UnknownValueMessage();
    default:
        return UnknownValueMessage();
    }
}

} // namespace norvik
