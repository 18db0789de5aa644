#pragma once

#include <QString>

namespace norvik {

using TDateTime = double;

// Dates as SQLite stores them: text "yyyy-mm-dd hh:nn:ss".
class SQLiteDateText {
public:
    static QString FromDateTime(TDateTime value);
    // also accepts a date without time and the "dd.mm.yyyy" form of old defaults
    static bool TryParse(const QString& text, TDateTime& result);
};

} // namespace norvik
