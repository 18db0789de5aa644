#pragma once

#include <QDate>
#include <QDateTime>
#include <optional>

namespace norvik {

using TDateTime = double;

// Every reading of "today" and "now" goes through here, so that tests and the command line
// can fix the moment the program believes it is.
class Clock {
public:
    static QDateTime now();
    static QDate today() { return now().date(); }
    static TDateTime nowDateTime();
    static TDateTime todayDate();

    static void setFixed(const QDateTime& moment);
    static void clearFixed();
    static bool isFixed();

private:
    static std::optional<QDateTime>& fixedMoment();
};

} // namespace norvik
