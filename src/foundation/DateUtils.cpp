#include "DateUtils.h"

#include "Clock.h"
#include "SystemFormats.h"
#include "TDateTimeUtils.h"

#include <QDate>
#include <QHash>
#include <QTime>
#include <array>
#include <cmath>
#include <optional>

namespace norvik {

namespace {

// a field of the parse state that the text has not given
constexpr quint16 Unset = 65535;
// numbers beyond this fit no field; they are cut here so that they can never read as unset
constexpr qint64 LargestFieldNumber = 65534;
// bases nested deeper than this are no date a person writes; the bound keeps the stack safe
constexpr int MaxBaseNesting = 16;

enum Field { Day, Month, Year, Hour, Minute, Second, FieldCount };

struct DateParseState {
    std::array<quint16, FieldCount> fields{};
    bool hasDate = false;
    bool hasTime = false;
};

// Short names as an Austrian workstation writes them; the long ones as well, so that a letter
// never depends on the locale data of the machine.
const std::array<QString, 12>& shortMonthNames() {
    static const std::array<QString, 12> names{
        QStringLiteral("Jän"), QStringLiteral("Feb"), QStringLiteral("Mär"), QStringLiteral("Apr"),
        QStringLiteral("Mai"), QStringLiteral("Jun"), QStringLiteral("Jul"), QStringLiteral("Aug"),
        QStringLiteral("Sep"), QStringLiteral("Okt"), QStringLiteral("Nov"), QStringLiteral("Dez")};
    return names;
}

const std::array<QString, 12>& longMonthNames() {
    static const std::array<QString, 12> names{
        QStringLiteral("Jänner"),  QStringLiteral("Februar"),  QStringLiteral("März"),
        QStringLiteral("April"),   QStringLiteral("Mai"),      QStringLiteral("Juni"),
        QStringLiteral("Juli"),    QStringLiteral("August"),   QStringLiteral("September"),
        QStringLiteral("Oktober"), QStringLiteral("November"), QStringLiteral("Dezember")};
    return names;
}

// Monday first, as QDate::dayOfWeek counts
const std::array<QString, 7>& shortDayNames() {
    static const std::array<QString, 7> names{
        QStringLiteral("Mo"), QStringLiteral("Di"), QStringLiteral("Mi"), QStringLiteral("Do"),
        QStringLiteral("Fr"), QStringLiteral("Sa"), QStringLiteral("So")};
    return names;
}

const std::array<QString, 7>& longDayNames() {
    static const std::array<QString, 7> names{QStringLiteral("Montag"),   QStringLiteral("Dienstag"),
                                              QStringLiteral("Mittwoch"), QStringLiteral("Donnerstag"),
                                              QStringLiteral("Freitag"),  QStringLiteral("Samstag"),
                                              QStringLiteral("Sonntag")};
    return names;
}

QHash<QString, TnvDayMonthRecord> buildDayMonthWords() {
    QHash<QString, TnvDayMonthRecord> words;
    const auto add = [&words](std::initializer_list<const char16_t*> names, TnvDayMonthRecord record) {
        for (const char16_t* name : names)
            words.insert(QString::fromUtf16(name).toCaseFolded(), record);
    };
    add({u"Januar", u"Jänner", u"January"}, {1, 0});
    add({u"Februar", u"Feber", u"February"}, {2, 0});
    add({u"März", u"March"}, {3, 0});
    add({u"April"}, {4, 0});
    add({u"Mai", u"May"}, {5, 0});
    add({u"Juni", u"June"}, {6, 0});
    add({u"Juli", u"July"}, {7, 0});
    add({u"August"}, {8, 0});
    add({u"September"}, {9, 0});
    add({u"Oktober", u"October"}, {10, 0});
    add({u"November"}, {11, 0});
    add({u"Dezember", u"December"}, {12, 0});
    const std::array weekdays{u"Montag",  u"Dienstag", u"Mittwoch", u"Donnerstag",
                              u"Freitag", u"Samstag",  u"Sonntag"};
    for (int day = 0; day < int(weekdays.size()); ++day)
        add({weekdays[day]}, {0, day + 1});
    return words;
}

bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

int digitRunEnd(const QString& text, int from) {
    while (from < text.size() && isDigit(text.at(from)))
        ++from;
    return from;
}

int letterRunEnd(const QString& text, int from) {
    while (from < text.size() && text.at(from).isLetter())
        ++from;
    return from;
}

quint16 fieldNumber(QStringView digits) {
    qint64 value = 0;
    for (const QChar c : digits) {
        value = value * 10 + (c.unicode() - u'0');
        if (value > LargestFieldNumber)
            return quint16(LargestFieldNumber);
    }
    return quint16(value);
}

// trimmed, with runs of blanks reduced to one
QString simplifiedText(const QString& text) {
    QString result = text.trimmed();
    while (result.contains(u"  "))
        result.replace(QLatin1String("  "), QLatin1String(" "));
    return result;
}

// A two-digit year is of the 2000s while it stays below the last two digits of this year plus
// the system's window, and of the 1900s from there; 900 to 999 are slips for 1900 to 1999.
int normalisedYear(int year) {
    const int currentYear = Clock::today().year();
    if (year < 100) {
        const int pivot = (currentYear + platform::SystemFormats::current().twoDigitYearCenturyWindow) % 100;
        return pivot > year ? 2000 + year : 1900 + year;
    }
    if (year >= 900 && year <= 999)
        return year + 1000;
    if (year == Unset)
        return currentYear;
    return year;
}

// the fraction of a day before the neutral date still runs forward
TDateTime combined(TDateTime date, TDateTime time) {
    return date >= 0 ? date + time : date - time;
}

TDateTime fromMSecs(qint64 msecs) {
    const qint64 days = msecs >= 0
                            ? msecs / TDateTimeUtils::MSecsPerDay
                            : -((-msecs + TDateTimeUtils::MSecsPerDay - 1) / TDateTimeUtils::MSecsPerDay);
    const qint64 rest = msecs - days * TDateTimeUtils::MSecsPerDay;
    return combined(double(days), double(rest) / TDateTimeUtils::MSecsPerDay);
}

bool isoWeekMonday(int year, int week, QDate& monday) {
    // 4 January always lies in week 1
    const QDate fourthOfJanuary(year, 1, 4);
    const int weeksInYear = QDate(year, 12, 28).weekNumber();
    if (!fourthOfJanuary.isValid() || week < 1 || week > weeksInYear)
        return false;
    monday = fourthOfJanuary.addDays(1 - fourthOfJanuary.dayOfWeek() + 7 * (week - 1));
    return true;
}

bool toTDateTime(const QDate& date, TDateTime& result) {
    return date.isValid() && TDateTimeUtils::TryEncodeDate(date.year(), date.month(), date.day(), result);
}

// "kw" and a run of 2, 4 or 6 digits: week, then the year if given
int calendarWeekValue(const QString& text, TDateTime& date) {
    int start = 2;
    while (start < text.size() && !isDigit(text.at(start)))
        ++start;
    const int end = digitRunEnd(text, start);
    const int length = end - start;
    if (length != 2 && length != 4 && length != 6)
        return 0;
    const int week = text.mid(start, 2).toInt();
    const int year =
        length > 2 ? normalisedYear(text.mid(start + 2, length - 2).toInt()) : Clock::today().year();
    QDate monday;
    return isoWeekMonday(year, week, monday) && toTDateTime(monday, date) ? 1 : 0;
}

// the first and last day of the period of the base that a date word names
bool periodDay(const QString& word, const QDate& base, QDate& day) {
    const auto is = [&word](QStringView name) { return word.compare(name, Qt::CaseInsensitive) == 0; };
    const int quarterStart = (base.month() - 1) / 3 * 3 + 1;
    if (is(u"StartOfYear"))
        day = QDate(base.year(), 1, 1);
    else if (is(u"EndOfYear"))
        day = QDate(base.year(), 12, 31);
    else if (is(u"StartOfMonth"))
        day = QDate(base.year(), base.month(), 1);
    else if (is(u"EndOfMonth"))
        day = QDate(base.year(), base.month(), base.daysInMonth());
    else if (is(u"StartOfWeek"))
        day = base.addDays(1 - base.dayOfWeek());
    else if (is(u"EndOfWeek"))
        day = base.addDays(7 - base.dayOfWeek());
    else if (is(u"StartOfQuarter"))
        day = QDate(base.year(), quarterStart, 1);
    else if (is(u"EndOfQuarter"))
        day = QDate(base.year(), quarterStart + 2, 1).addMonths(1).addDays(-1);
    else
        return false;
    return true;
}

bool dateWordOfBase(const QString& word, TDateTime base, TDateTime& value) {
    const auto is = [&word](QStringView name) { return word.compare(name, Qt::CaseInsensitive) == 0; };
    if (is(u"heute") || is(u"DATE")) {
        value = Clock::todayDate();
        return true;
    }
    if (is(u"jetzt") || is(u"NOW")) {
        value = Clock::nowDateTime();
        return true;
    }
    QDate day;
    return periodDay(word, TDateTimeUtils::toDate(base), day) && toTDateTime(day, value);
}

// index of the parenthesis that closes the one at open, or -1
int closingParenthesis(const QString& text, int open) {
    int depth = 0;
    for (int i = open; i < text.size(); ++i) {
        if (text.at(i) == u'(')
            ++depth;
        else if (text.at(i) == u')' && --depth == 0)
            return i;
    }
    return -1;
}

int tryTextToDate(const QString& AText, TDateTime& ADate, bool AFlag, int nesting);

int dateWordValue(const QString& text, TDateTime& date, bool flag, int nesting) {
    const int wordEnd = letterRunEnd(text, 0);
    const QString word = text.left(wordEnd);
    int next = wordEnd;
    while (next < text.size() && text.at(next) == u' ')
        ++next;
    TDateTime base = Clock::nowDateTime();
    if (next < text.size() && text.at(next) == u'(') {
        const int close = closingParenthesis(text, next);
        if (close < 0 || nesting >= MaxBaseNesting)
            return 0;
        if (tryTextToDate(text.mid(next + 1, close - next - 1), base, flag, nesting + 1) != 1)
            return 0;
    }
    return dateWordOfBase(word, base, date) ? 1 : 0;
}

DateParseState initialState(bool flag) {
    DateParseState state;
    const QDate today = Clock::today();
    state.fields[Day] = flag ? Unset : quint16(today.day());
    state.fields[Month] = flag ? Unset : quint16(today.month());
    state.fields[Year] = flag ? Unset : quint16(today.year());
    return state;
}

// "ddmm", "ddmmyy" or "ddmmyyyy"; gives the field that the next number fills
int readCompactDate(QStringView digits, DateParseState& state) {
    state.fields[Day] = fieldNumber(digits.mid(0, 2));
    state.fields[Month] = fieldNumber(digits.mid(2, 2));
    state.hasDate = true;
    if (digits.size() == 4)
        return Year;
    state.fields[Year] = fieldNumber(digits.mid(4));
    return Hour;
}

// Numbers fill day, month, year, hour, minute, second in turn; a month word fills the month
// and a weekday is read over. A number right before ":" is an hour at the latest.
bool readFields(const QString& text, DateParseState& state) {
    const bool textHasColon = text.contains(u':');
    int position = Day;
    bool numberSeen = false;
    int i = 0;
    while (i < text.size()) {
        const QChar c = text.at(i);
        if (isDigit(c)) {
            const int end = digitRunEnd(text, i);
            const QStringView digits = QStringView(text).mid(i, end - i);
            const bool compact = !numberSeen && !state.hasDate && !textHasColon &&
                                 (digits.size() == 4 || digits.size() == 6 || digits.size() == 8);
            if (compact) {
                position = readCompactDate(digits, state);
            } else {
                if (end < text.size() && text.at(end) == u':' && position < Hour)
                    position = Hour;
                if (position < FieldCount) {
                    state.fields[position] = fieldNumber(digits);
                    state.hasDate = state.hasDate || position <= Year;
                    ++position;
                }
            }
            numberSeen = true;
            i = end;
        } else if (c.isLetter()) {
            const int end = letterRunEnd(text, i);
            const TnvDayMonthRecord* word = FindDayMonthWord(text.mid(i, end - i));
            if (!word)
                return false;
            if (word->Month > 0) {
                state.fields[Month] = quint16(word->Month);
                state.hasDate = true;
                position = std::max(position, int(Year));
            }
            i = end;
        } else {
            state.hasTime = state.hasTime || c == u':';
            ++i;
        }
    }
    return state.hasDate || state.hasTime;
}

int encodedState(const DateParseState& state, bool pm, TDateTime& result) {
    TDateTime date = 0;
    TDateTime time = 0;
    if (state.hasDate) {
        const int year = normalisedYear(state.fields[Year]);
        const int month = state.fields[Month] == Unset ? Clock::today().month() : state.fields[Month];
        if (!TDateTimeUtils::TryEncodeDate(year, month, state.fields[Day], date))
            return 0;
    }
    // 12 PM is noon already
    const int hour = pm && state.fields[Hour] < 12 ? state.fields[Hour] + 12 : state.fields[Hour];
    if (!TDateTimeUtils::TryEncodeTime(hour, state.fields[Minute], state.fields[Second], 0, time))
        return 0;
    result = combined(date, state.hasTime ? time : 0);
    return 1;
}

int tryTextToDate(const QString& AText, TDateTime& ADate, bool AFlag, int nesting) {
    ADate = 0;
    QString text = simplifiedText(AText);
    const bool pm = text.endsWith(u"PM", Qt::CaseInsensitive);
    if (pm)
        text = text.chopped(2).trimmed();
    if (text.isEmpty())
        return 0;
    if (text.startsWith(u"kw", Qt::CaseInsensitive))
        return calendarWeekValue(text, ADate);
    if (text.at(0).isLetter() && !FindDayMonthWord(text.left(letterRunEnd(text, 0))))
        return dateWordValue(text, ADate, AFlag, nesting);
    DateParseState state = initialState(AFlag);
    if (!readFields(text, state))
        return 0;
    return encodedState(state, pm, ADate);
}

// Reads ISO 8601 text from left to right; every deviation raises.
class ISO8601Reader {
public:
    explicit ISO8601Reader(const QString& text)
        : m_text(text) {}

    TDateTime read(bool returnUTC) {
        const QDate date = readDate();
        qint64 msecs = 0;
        if (accept(u'T') || accept(u't') || accept(u' '))
            msecs = readTime();
        const std::optional<int> zoneMinutes = readZone();
        if (m_pos != m_text.size() || !date.isValid() || date.year() < 1 || date.year() > 9999)
            fail();
        msecs += qint64(TDateTimeUtils::fromDate(date)) * TDateTimeUtils::MSecsPerDay;
        if (returnUTC && zoneMinutes)
            msecs -= qint64(*zoneMinutes) * 60000;
        return fromMSecs(msecs);
    }

private:
    const QString& m_text;
    int m_pos = 0;

    [[noreturn]] void fail() const {
        throw EConvertError(QStringLiteral("Ungültiger Datums-String: %1").arg(m_text));
    }

    bool accept(QChar c) {
        if (m_pos < m_text.size() && m_text.at(m_pos) == c) {
            ++m_pos;
            return true;
        }
        return false;
    }

    int digitsAhead() const { return digitRunEnd(m_text, m_pos) - m_pos; }

    int number(int digits) {
        if (digitsAhead() < digits)
            fail();
        const int value = m_text.mid(m_pos, digits).toInt();
        m_pos += digits;
        return value;
    }

    QDate readDate() {
        const int year = number(4);
        if (!dateGoesOn())
            return QDate(year, 1, 1);
        const bool extended = accept(u'-');
        if (accept(u'W'))
            return readWeekDate(year, extended);
        if (digitsAhead() == 3)
            return readOrdinalDate(year);
        if (!extended && digitsAhead() != 4)
            fail();
        const int month = number(2);
        const int day = !extended ? number(2) : accept(u'-') ? number(2) : 1;
        return QDate(year, month, day);
    }

    // a year alone ends where the time begins
    bool dateGoesOn() const {
        if (m_pos == m_text.size())
            return false;
        const QChar c = m_text.at(m_pos);
        return isDigit(c) || c == u'-' || c == u'W';
    }

    QDate readOrdinalDate(int year) {
        const QDate first(year, 1, 1);
        const int day = number(3);
        if (day < 1 || day > first.daysInYear())
            fail();
        return first.addDays(day - 1);
    }

    QDate readWeekDate(int year, bool extended) {
        const int week = number(2);
        const int dayOfWeek = (extended ? accept(u'-') : digitsAhead() > 0) ? number(1) : 1;
        QDate monday;
        if (dayOfWeek < 1 || dayOfWeek > 7 || !isoWeekMonday(year, week, monday))
            fail();
        return monday.addDays(dayOfWeek - 1);
    }

    // hh, hh:mm, hh:mm:ss or hhmm, hhmmss, the last with an optional fraction
    qint64 readTime() {
        const int hour = number(2);
        int minute = 0;
        int second = 0;
        qint64 unit = 3600000;
        const bool extended = accept(u':');
        if (extended || digitsAhead() >= 2) {
            minute = number(2);
            unit = 60000;
            if (extended ? accept(u':') : digitsAhead() >= 2) {
                second = number(2);
                unit = 1000;
            }
        }
        if (hour > 24 || minute > 60 || second > 60)
            fail();
        return ((qint64(hour) * 60 + minute) * 60 + second) * 1000 + readFraction(unit);
    }

    qint64 readFraction(qint64 unit) {
        if (!accept(u'.') && !accept(u','))
            return 0;
        const int digits = digitsAhead();
        if (digits == 0)
            fail();
        // nine digits are finer than a millisecond already
        const double fraction =
            m_text.mid(m_pos, std::min(digits, 9)).toDouble() / std::pow(10.0, std::min(digits, 9));
        m_pos += digits;
        return std::llround(fraction * double(unit));
    }

    // minutes east of UTC, or nothing when the text names no zone
    std::optional<int> readZone() {
        if (accept(u'Z') || accept(u'z'))
            return 0;
        const bool east = accept(u'+');
        if (!east && !accept(u'-'))
            return std::nullopt;
        const int hours = number(2);
        const int minutes = accept(u':') || digitsAhead() >= 2 ? number(2) : 0;
        if (hours > 23 || minutes > 59)
            fail();
        return (east ? 1 : -1) * (hours * 60 + minutes);
    }
};

// Writes one value by the framework's date format letters, from left to right.
class DateTimeFormatter {
public:
    DateTimeFormatter(const QString& format, TDateTime value)
        : m_format(format) {
        // 1 January 1 to 31 December 9999
        if (!(value >= -693593.0 && value < 2958466.0))
            throw EConvertError(QStringLiteral("Ungültiger Datumswert: %1").arg(value));
        m_date = TDateTimeUtils::toDate(value);
        m_time = TDateTimeUtils::toTime(value);
        m_twelveHours =
            format.contains(u"am/pm", Qt::CaseInsensitive) || format.contains(u"a/p", Qt::CaseInsensitive);
    }

    QString text() {
        while (m_pos < m_format.size()) {
            if (!appendQuoted() && !appendHalfDayMark(u"am/pm", u"am", u"pm") &&
                !appendHalfDayMark(u"a/p", u"a", u"p"))
                appendSpecifierOrLiteral();
        }
        return m_text;
    }

private:
    const platform::SystemFormats& m_formats = platform::SystemFormats::current();
    const QLocale m_locale = m_formats.locale();
    const QString& m_format;
    QDate m_date;
    QTime m_time;
    bool m_twelveHours = false;
    // "m" right behind an hour means minutes
    bool m_afterHour = false;
    qsizetype m_pos = 0;
    QString m_text;

    bool appendQuoted() {
        const QChar quote = m_format.at(m_pos);
        if (quote != u'"' && quote != u'\'')
            return false;
        const qsizetype end = m_format.indexOf(quote, m_pos + 1);
        const qsizetype stop = end < 0 ? m_format.size() : end;
        m_text += QStringView(m_format).mid(m_pos + 1, stop - m_pos - 1);
        m_pos = stop + 1;
        return true;
    }

    // "am/pm" and "a/p" in the letter case of their first letter
    bool appendHalfDayMark(QStringView mark, QStringView morning, QStringView afternoon) {
        if (QStringView(m_format).mid(m_pos, mark.size()).compare(mark, Qt::CaseInsensitive) != 0)
            return false;
        const QString text = (m_time.hour() < 12 ? morning : afternoon).toString();
        m_text += m_format.at(m_pos).isUpper() ? text.toUpper() : text;
        m_pos += mark.size();
        return true;
    }

    void appendSpecifierOrLiteral() {
        const QChar c = m_format.at(m_pos);
        const QChar letter = c.toLower();
        qsizetype run = 1;
        while (m_pos + run < m_format.size() && m_format.at(m_pos + run).toLower() == letter)
            ++run;
        if (!QStringView(u"cdmyhnszt").contains(letter)) {
            m_text += c == u'/' ? m_formats.dateSeparator : c == u':' ? m_formats.timeSeparator : c;
            ++m_pos;
            return;
        }
        const bool minutes = letter == u'm' && m_afterHour && run <= 2;
        m_pos += minutes ? appendNumber(m_time.minute(), run, 2) : appendSpecifier(letter, run);
        m_afterHour = letter == u'h';
    }

    // gives how many letters of the run were used
    qsizetype appendSpecifier(QChar letter, qsizetype run) {
        switch (letter.unicode()) {
        case u'c':
            m_text += dateText(m_formats.shortDateFormat);
            if (m_time.msecsSinceStartOfDay() != 0)
                m_text += QLatin1Char(' ') + timeText(m_formats.longTimeFormat);
            return 1;
        case u'd':
            return appendDay(run);
        case u'm':
            return appendMonth(run);
        case u'y':
            m_text += run <= 2 ? padded(m_date.year() % 100, 2) : padded(m_date.year(), 4);
            return run;
        case u'h':
            return appendNumber(m_twelveHours ? (m_time.hour() + 11) % 12 + 1 : m_time.hour(), run, 2);
        case u'n':
            return appendNumber(m_time.minute(), run, 2);
        case u's':
            return appendNumber(m_time.second(), run, 2);
        case u'z':
            return appendNumber(m_time.msec(), run, 3);
        default: // 't'
            m_text += timeText(run == 1 ? m_formats.shortTimeFormat : m_formats.longTimeFormat);
            return std::min<qsizetype>(run, 2);
        }
    }

    // one letter without leading zeros, the full width with them
    qsizetype appendNumber(int value, qsizetype run, int width) {
        m_text += run >= width ? padded(value, width) : QString::number(value);
        return run >= width ? width : 1;
    }

    qsizetype appendDay(qsizetype run) {
        if (run <= 2)
            return appendNumber(m_date.day(), run, 2);
        const int weekday = m_date.dayOfWeek() - 1;
        if (run == 3)
            m_text += shortDayNames()[weekday];
        else if (run == 4)
            m_text += longDayNames()[weekday];
        else
            m_text += dateText(run == 5 ? m_formats.shortDateFormat : m_formats.longDateFormat);
        return std::min<qsizetype>(run, 6);
    }

    qsizetype appendMonth(qsizetype run) {
        if (run <= 2)
            return appendNumber(m_date.month(), run, 2);
        m_text += run == 3 ? shortMonthNames()[m_date.month() - 1] : longMonthNames()[m_date.month() - 1];
        return std::min<qsizetype>(run, 4);
    }

    QString dateText(const QString& systemFormat) const { return m_locale.toString(m_date, systemFormat); }
    QString timeText(const QString& systemFormat) const { return m_locale.toString(m_time, systemFormat); }

    static QString padded(int value, int width) {
        return QStringLiteral("%1").arg(value, width, 10, QLatin1Char('0'));
    }
};

} // namespace

const TnvDayMonthRecord* FindDayMonthWord(const QString& AWord) {
    static const QHash<QString, TnvDayMonthRecord> words = buildDayMonthWords();
    const auto found = words.constFind(AWord.toCaseFolded());
    return found == words.constEnd() ? nullptr : &found.value();
}

int TryTextToDate(const QString& AText, TDateTime& ADate, bool AFlag) {
    return tryTextToDate(AText, ADate, AFlag, 0);
}

int DateWordValue(const QString& AText, TDateTime& ADate, bool AFlag) {
    ADate = 0;
    const QString text = simplifiedText(AText);
    return text.isEmpty() ? 0 : dateWordValue(text, ADate, AFlag, 0);
}

TDateTime ISO8601ToDate(const QString& AText, bool AReturnUTC) {
    const QString text = AText.trimmed();
    if (text.size() < 4)
        throw EConvertError(QStringLiteral("Ungültiger Datums-String: %1").arg(AText));
    return ISO8601Reader(text).read(AReturnUTC);
}

TDateTime ISO8601TextToDate(const QString& AText, bool AReturnUTC, TDateTime ADefault) {
    try {
        return ISO8601ToDate(AText, AReturnUTC);
    } catch (const EConvertError&) {
        return ADefault;
    }
}

QString FormatDateTimeText(const QString& AFormat, TDateTime AValue) {
    return DateTimeFormatter(AFormat, AValue).text();
}

} // namespace norvik
