#pragma once

struct sqlite3;

namespace norvik {

// The scalar function "like" that replaces SQLite's own LIKE, which folds only ASCII
// letters: like(pattern, value) and like(pattern, value, escape) match with WildcardMatch
// and yield -1 for a match, 0 otherwise, and NULL when an argument is NULL.
class SQLiteLikeFunction {
public:
    static void Register(sqlite3* handle);
};

} // namespace norvik
