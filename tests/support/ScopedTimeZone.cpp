#include "ScopedTimeZone.h"

#include <QtGlobal>
#include <ctime>

namespace testsupport {

ScopedTimeZone::ScopedTimeZone(const char* zone)
    : m_old(qgetenv("TZ"))
    , m_hadOld(qEnvironmentVariableIsSet("TZ")) {
    qputenv("TZ", zone);
    tzset();
}

ScopedTimeZone::~ScopedTimeZone() {
    if (m_hadOld)
        qputenv("TZ", m_old);
    else
        qunsetenv("TZ");
    tzset();
}

} // namespace testsupport
