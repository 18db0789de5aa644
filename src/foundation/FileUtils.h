#pragma once

#include <QString>

namespace norvik {

// Reads a whole text file as UTF-8; a byte order mark at the start is dropped. False, and
// the text left empty, when the file cannot be read.
bool TryReadUtf8File(const QString& path, QString& text);

} // namespace norvik
