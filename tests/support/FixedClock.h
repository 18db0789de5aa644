#pragma once

#include <QDateTime>

namespace testsupport {

// Fixes the program's clock for the lifetime of the object.
class FixedClock {
public:
    explicit FixedClock(const QDateTime& moment);
    // "yyyy-MM-dd hh:mm:ss"
    explicit FixedClock(const char* moment);
    ~FixedClock();
    FixedClock(const FixedClock&) = delete;
    FixedClock& operator=(const FixedClock&) = delete;
};

} // namespace testsupport
