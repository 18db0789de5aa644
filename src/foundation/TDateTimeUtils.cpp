#include "TDateTimeUtils.h"

#include "SystemFormats.h"

#include <QRegularExpression>
#include <cmath>

namespace norvik {

namespace {

const QDate& neutralDate() {
    static const QDate date(1899, 12, 30);
    return date;
}

} // namespace

bool TDateTimeUtils::TryEncodeDate(int year, int month, int day, TDateTime& result) {
    if (year < 1 || year > 9999)
        return false;
    const QDate date(year, month, day);
    if (!date.isValid())
        return false;
    result = fromDate(date);
    return true;
}

bool TDateTimeUtils::TryEncodeTime(int hour, int minute, int second, int msec, TDateTime& result) {
    if (hour < 0 || hour > 23 || minute < 0 || minute > 59 || second < 0 || second > 59 || msec < 0 ||
        msec > 999)
        return false;
    result = double(((hour * 60 + minute) * 60 + second) * 1000 + msec) / MSecsPerDay;
    return true;
}

TDateTime TDateTimeUtils::EncodeDate(int year, int month, int day) {
    TDateTime result = 0;
    TryEncodeDate(year, month, day, result);
    return result;
}

void TDateTimeUtils::DecodeDate(TDateTime value, int& year, int& month, int& day) {
    toDate(value).getDate(&year, &month, &day);
}

TDateTime TDateTimeUtils::fromDate(const QDate& date) {
    return double(neutralDate().daysTo(date));
}

TDateTime TDateTimeUtils::fromQDateTime(const QDateTime& dateTime) {
    const QDateTime local = dateTime.toLocalTime();
    const double days = fromDate(local.date());
    const double fraction = double(local.time().msecsSinceStartOfDay()) / MSecsPerDay;
    return days >= 0 ? days + fraction : days - fraction;
}

QDate TDateTimeUtils::toDate(TDateTime value) {
    // a value a hair below midnight belongs to the next day once rounded to milliseconds
    const qint64 msecs = std::llround(std::fabs(value - std::trunc(value)) * MSecsPerDay);
    qint64 days = qint64(std::trunc(value));
    if (msecs >= MSecsPerDay)
        days += value >= 0 ? 1 : -1;
    return neutralDate().addDays(days);
}

QTime TDateTimeUtils::toTime(TDateTime value) {
    const qint64 msecs = std::llround(std::fabs(value - std::trunc(value)) * MSecsPerDay) % MSecsPerDay;
    return QTime::fromMSecsSinceStartOfDay(int(msecs));
}

QDateTime TDateTimeUtils::toQDateTime(TDateTime value) {
    return QDateTime(toDate(value), toTime(value));
}

TDateTime TDateTimeUtils::dateOf(TDateTime value) {
    return fromDate(toDate(value));
}

TDateTime TDateTimeUtils::timeOf(TDateTime value) {
    return double(toTime(value).msecsSinceStartOfDay()) / MSecsPerDay;
}

QString TDateTimeUtils::toSystemText(TDateTime value) {
    const auto& formats = platform::SystemFormats::current();
    const QDateTime dateTime = toQDateTime(value);
    QString text = dateTime.date().toString(formats.shortDateFormat);
    if (dateTime.time().msecsSinceStartOfDay() != 0)
        text += QLatin1Char(' ') + dateTime.time().toString(formats.longTimeFormat);
    return text;
}

bool TDateTimeUtils::tryParseSystemDateTime(const QString& text, TDateTime& result) {
    static const QRegularExpression pattern(QStringLiteral(
        R"(^\s*(\d{1,2})\.(\d{1,2})\.(\d{1,4})(?:\s+(\d{1,2}):(\d{1,2})(?::(\d{1,2}))?)?\s*$)"));
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch())
        return false;
    TDateTime date = 0;
    TDateTime time = 0;
    if (!TryEncodeDate(match.captured(3).toInt(), match.captured(2).toInt(), match.captured(1).toInt(), date))
        return false;
    if (match.hasCaptured(4) && !TryEncodeTime(match.captured(4).toInt(), match.captured(5).toInt(),
                                               match.captured(6).toInt(), 0, time))
        return false;
    result = date >= 0 ? date + time : date - time;
    return true;
}

} // namespace norvik
