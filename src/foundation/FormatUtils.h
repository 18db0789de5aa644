#pragma once

#include "Variant.h"

#include <QString>
#include <functional>

namespace norvik {

// The answers that count as yes, each in brackets and upper case.
const QString& TruthList();
// J, JA, Y, YES, X, 1, -1, T, TRUE, W, WAHR, E, EIN in any letter case; all else, the empty
// text too, is no.
bool IsTrueText(const QString& AText);

// Reckons an expression typed behind "=" in a number field, with "." as decimal point.
using TextEvaluator = std::function<bool(const QString& expression, double& result)>;
// Installs the evaluator for number texts beginning with "="; an empty one removes it.
void RegisterTextEvaluator(TextEvaluator AEvaluator);

// Results of the tolerant number parsers
constexpr int TextParsed = 1;
constexpr int TextNotParsed = 0;
constexpr int TextEmpty = 2;

// A number as a person types it, in the system's format: "1.234,56", "12,5 kg" (words behind
// the number are read over), "=1,5*2" with an evaluator installed. Gives TextParsed,
// TextNotParsed or TextEmpty; AValue is 0 in the last two. Never raises.
int TryTextToFloat(const QString& AText, double& AValue);
// The same for an amount.
int TryTextToCurrency(const QString& AText, Currency& AValue);
// The value, or 0 when the text is none; dates with today's day, month and year filling in.
TDateTime TextToDate(const QString& AText);
double TextToFloat(const QString& AText);

// A variant of a number or date kind as double; every other kind, Null and Unassigned too,
// gives ADefault.
double VarToDoubleDef(const Variant& AValue, double ADefault);

// The output kinds of the value formatters.
namespace FormatKind {
constexpr int UpperCase = 1;
constexpr int LowerCase = 2;
constexpr int YesNoLetter = 3;   // "J" or "N"
constexpr int YesNoWord = 4;     // "Ja" or "Nein"
constexpr int Date = 5;          // "dd.mm.yyyy"
constexpr int DateMonthName = 6; // "dd. mmm yyyy" unless short
constexpr int DateAlso = 7;      // "dd.mm.yyyy"
constexpr int SystemShortDate = 8;
constexpr int SystemLongDate = 9;
constexpr int DateTime = 10;     // the format "c"
constexpr int DateTimeText = 11; // as TDateTimeUtils::toSystemText
constexpr int WholeNumber = 12;  // "%.0n"
constexpr int Decimals = 13;     // "%.<decimals>n"
constexpr int Int64Digits = 14;  // digits of the whole number
constexpr int Scientific = 15;   // "%e"
constexpr int DecimalsAlso = 16; // "%.<decimals>n"
constexpr int Int64DigitsAlso = 17;
constexpr int CallersFormat = 18; // the format given by the caller
} // namespace FormatKind

// The text when a value has no kind that the formatters know.
const QString& UnknownValueMessage();
// The text that stands for a value that could not be formatted.
const QString& FormatErrorText();

// Value to text by the output kind. None of them raises: a value that does not fit its kind
// gives FormatErrorText(). Kind 18 takes AFormat as a FormatText format (FormatText.h) for text
// and numbers, and as a FormatDateTimeText format (DateUtils.h) for dates.
// Text: kinds 1 to 4 and 18; every other kind leaves the text as it is.
QString FormatTextValue(const QString& AFormat, int AKind, const Variant& AValue);
// Numbers: kinds 12 to 18; every other kind gives the plain number text.
QString FormatNumberValue(const QString& AFormat, int AKind, const Variant& AValue, int ADecimals);
// Dates: kinds 5 to 11 and 18, any other kind the system's short date. Empty values and dates
// of 0 or less give an empty text. AShort keeps kind 6 to digits.
QString FormatDateValue(const QString& AFormat, int AKind, const Variant& AValue, bool AShort);
// By the value's kind: whole numbers and floats as numbers (a float of kind 11 as a date),
// text as text, a boolean as "True" or "False", a date above 0 as a date; anything else gives
// UnknownValueMessage().
QString FormatValue(const QString& AFormat, int AKind, const Variant& AValue, int ADecimals, bool AShort);

} // namespace norvik
