#pragma once

#include <QString>

namespace platform {

// The machine-wide application data folder; ORVENNA_COMMON_APPDATA replaces it so that
// tests never write outside a folder of their own.
QString commonAppDataDir();

// The user's roaming application data folder: the XDG config home.
QString userAppDataDir();

// The folder of the running executable.
QString programDir();

// Where log files go: ORVENNA_LOG_DIR when set, otherwise the program folder.
QString logDir();

} // namespace platform
