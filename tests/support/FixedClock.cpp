#include "FixedClock.h"

#include "Clock.h"

namespace testsupport {

FixedClock::FixedClock(const QDateTime& moment) {
    norvik::Clock::setFixed(moment);
}

FixedClock::FixedClock(const char* moment)
    : FixedClock(QDateTime::fromString(QString::fromLatin1(moment), QStringLiteral("yyyy-MM-dd HH:mm:ss"))) {}

FixedClock::~FixedClock() {
    norvik::Clock::clearFixed();
}

} // namespace testsupport
