#include "TSVNr.h"

#include "Clock.h"

namespace {

constexpr int ShortLength = 4;
constexpr int FullLength = 10;
constexpr int DayPosition = 4;
constexpr int MonthPosition = 6;
constexpr int YearPosition = 8;
// the weights of the serial's first three digits, raised while the check digit would be 10
constexpr int FirstSerialWeights = 379;

bool IsDecimalDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

} // namespace

bool TSVNr::IsSVNrFormatValid(const QString& AText, bool AAllowZeroSerial) {
    if (AText.isEmpty() || AText.size() == ShortLength)
        return true;
    if (AText.size() != FullLength)
        return false;
    const int day = NumberAt(AText, DayPosition, 0);
    const int month = NumberAt(AText, MonthPosition, 0);
    const int year = NumberAt(AText, YearPosition, -1);
    if (day < 1 || day > 31 || month < 1 || month > 15 || year < 0)
        return false;
    if (AText.left(ShortLength) == QStringLiteral("0000"))
        return AAllowZeroSerial;
    return IsCheckDigitValid(AText);
}

norvik::TDateTime TSVNr::BirthDateOf(const QString& AText) {
    if (AText.size() != FullLength)
        return 0;
    const int day = NumberAt(AText, DayPosition, 0);
    const int month = NumberAt(AText, MonthPosition, 0);
    const int twoDigitYear = NumberAt(AText, YearPosition, 0);
    const int year =
        twoDigitYear > norvik::Clock::today().year() % 100 ? 1900 + twoDigitYear : 2000 + twoDigitYear;
    norvik::TDateTime result = 0;
    return norvik::TDateTimeUtils::TryEncodeDate(year, month, day, result) ? result : 0;
}

bool TSVNr::IsCheckDigitValid(const QString& AText) {
    if (AText.size() != FullLength)
        return false;
    for (int position = 0; position < ShortLength; ++position) {
        if (!IsDecimalDigit(AText.at(position)))
            return false;
    }
    const int tail = 5 * DigitAt(AText, 4) + 8 * DigitAt(AText, 5) + 4 * DigitAt(AText, 6) +
                     2 * DigitAt(AText, 7) + 1 * DigitAt(AText, 8) + 6 * DigitAt(AText, 9);
    int weights = FirstSerialWeights;
    int remainder = (WeightedSerial(AText, weights) + tail) % 11;
    // the weights walk on as 3 8 0, 3 8 1, ... ; a serial starting "000" would never leave 10
    const bool serialCanMove = AText.left(3) != QStringLiteral("000");
    while (remainder == 10 && serialCanMove) {
        ++weights;
        remainder = (WeightedSerial(AText, weights) + tail) % 11;
    }
    return remainder == DigitAt(AText, 3);
}

int TSVNr::WeightedSerial(const QString& AText, int AWeights) {
    const QString weights = QString::number(AWeights);
    int sum = 0;
    for (int position = 0; position < 3; ++position)
        sum += DigitAt(weights, position) * DigitAt(AText, position);
    return sum;
}

int TSVNr::NumberAt(const QString& AText, int APosition, int ADefault) {
    // a number may have blanks before it, but nothing else around its sign and digits
    QStringView digits = QStringView(AText).mid(APosition, 2);
    while (digits.startsWith(u' '))
        digits = digits.mid(1);
    bool ok = false;
    const int value = digits.toInt(&ok, 10);
    const bool hasOtherSpace = !digits.isEmpty() && (digits.front().isSpace() || digits.back().isSpace());
    return ok && !hasOtherSpace ? value : ADefault;
}

int TSVNr::DigitAt(const QString& AText, int APosition) {
    const QChar c = AText.at(APosition);
    return IsDecimalDigit(c) ? c.unicode() - u'0' : 0;
}
