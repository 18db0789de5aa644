#include "Clock.h"

#include "TDateTimeUtils.h"

namespace norvik {

std::optional<QDateTime>& Clock::fixedMoment() {
    static std::optional<QDateTime> moment;
    return moment;
}

QDateTime Clock::now() {
    return fixedMoment().value_or(QDateTime::currentDateTime());
}

TDateTime Clock::nowDateTime() {
    return TDateTimeUtils::fromQDateTime(now());
}

TDateTime Clock::todayDate() {
    return TDateTimeUtils::fromDate(today());
}

void Clock::setFixed(const QDateTime& moment) {
    fixedMoment() = moment;
}

void Clock::clearFixed() {
    fixedMoment().reset();
}

bool Clock::isFixed() {
    return fixedMoment().has_value();
}

} // namespace norvik
