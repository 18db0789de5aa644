#pragma once

#include "EConvertError.h"

#include <QString>

namespace norvik {

using TDateTime = double;

// A month or weekday word of the date parser. Month words carry their month 1 to 12;
// weekday words carry Month 0 and their ISO day in Value (1 Monday to 7 Sunday), so that
// "Montag, 3. März" reads the weekday over.
struct TnvDayMonthRecord {
    int Month = 0;
    int Value = 0;
};

// The month and weekday words in German and English, found in any letter case; nullptr for
// every other word.
const TnvDayMonthRecord* FindDayMonthWord(const QString& AWord);

// Date and time from what a person types: "3.1.26", "3. Jänner 2026", "03012026",
// "18.03.2026 14:30", "kw1226", "heute", "EndOfMonth(01.02.2026)". With AFlag false a
// missing day, month or year is today's; with AFlag true only month and year are filled in.
// Gives 1 and the value on success, 0 otherwise, and never raises.
int TryTextToDate(const QString& AText, TDateTime& ADate, bool AFlag);

// The date words ("heute", "jetzt", "StartOfMonth(...)", ...): 1 and the value, or 0 for any
// other word or a base in parentheses that does not parse.
int DateWordValue(const QString& AText, TDateTime& ADate, bool AFlag);

// ISO 8601 date with optional time and zone: "2026-03-18", "20260318T1430",
// "2026-03-18T14:30:15.250+01:00", "2026-W12-3", "2026-077". The time stays as written;
// with AReturnUTC a given zone is taken off to give UTC. Hour 24 and minute 60 roll over.
// Raises EConvertError for a text it cannot read.
TDateTime ISO8601ToDate(const QString& AText, bool AReturnUTC);
// The same, giving ADefault instead of raising.
TDateTime ISO8601TextToDate(const QString& AText, bool AReturnUTC, TDateTime ADefault);

// Date and time by a format of the framework's date format letters: d dd ddd dddd (day,
// short and long weekday), ddddd dddddd (system's short and long date), m mm mmm mmmm
// (month; minutes right behind an hour), yy yyyy, h hh, n nn, s ss, z zzz, t tt (system's
// times), c (date and time), am/pm and a/p, "/" and ":" as the system's separators, quoted
// text as it stands.
QString FormatDateTimeText(const QString& AFormat, TDateTime AValue);

} // namespace norvik
