#pragma once

namespace platform {

// Qt's platform plugins want a private per-user runtime folder. A session started without a
// desktop (a service, a terminal over ssh, CI) has none: give the process one of its own.
void ensureRuntimeFolder();

} // namespace platform
