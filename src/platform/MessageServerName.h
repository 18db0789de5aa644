#pragma once

#include <QString>

namespace platform {

// The name of the local socket on which the running program of this user takes messages from
// other programs: "orvenna-" and the login name. Each user of the machine has a server of
// their own, and a second start of the program by the same user finds the first.
QString messageServerName();

// the login name reduced to letters, digits, ".", "_" and "-", the others replaced by "_"
QString messageServerNameFor(const QString& userName);

} // namespace platform
