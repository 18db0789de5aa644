#include "SystemFormats.h"

namespace platform {

const SystemFormats& SystemFormats::current() {
    static const SystemFormats formats;
    return formats;
}

} // namespace platform
