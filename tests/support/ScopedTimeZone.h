#pragma once

#include <QByteArray>

namespace testsupport {

// Sets the process's time zone for one test and puts the old one back afterwards.
class ScopedTimeZone {
public:
    explicit ScopedTimeZone(const char* zone);
    ~ScopedTimeZone();
    ScopedTimeZone(const ScopedTimeZone&) = delete;
    ScopedTimeZone& operator=(const ScopedTimeZone&) = delete;

private:
    QByteArray m_old;
    bool m_hadOld;
};

} // namespace testsupport
