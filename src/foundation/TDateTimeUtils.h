#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QTime>

namespace norvik {

using TDateTime = double;

// Day counts from 30 December 1899 (the neutral date 0) with the time of day as fraction.
// Before that date the day count is negative and the fraction still runs forward.
class TDateTimeUtils {
public:
    static constexpr qint64 MSecsPerDay = 86400000;

    static bool TryEncodeDate(int year, int month, int day, TDateTime& result);
    static bool TryEncodeTime(int hour, int minute, int second, int msec, TDateTime& result);
    static TDateTime EncodeDate(int year, int month, int day);
    static void DecodeDate(TDateTime value, int& year, int& month, int& day);

    static TDateTime fromDate(const QDate& date);
    static TDateTime fromQDateTime(const QDateTime& dateTime);
    static QDate toDate(TDateTime value);
    static QTime toTime(TDateTime value);
    // a local date and time
    static QDateTime toQDateTime(TDateTime value);

    static TDateTime dateOf(TDateTime value);
    static TDateTime timeOf(TDateTime value);

    // date and time in the system's short date and long time format; the time is left out
    // at midnight exactly
    static QString toSystemText(TDateTime value);
    // "dd.mm.yyyy", optionally followed by "hh:nn" or "hh:nn:ss"
    static bool tryParseSystemDateTime(const QString& text, TDateTime& result);
};

} // namespace norvik
