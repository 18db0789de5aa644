#include "SQLiteLikeFunction.h"

#include "ESQLiteError.h"
#include "WildcardMatch.h"

#include <QList>
#include <QString>
#include <memory>
#include <sqlite3.h>

namespace norvik {

namespace {

constexpr int MatchResult = -1;

QString textArgument(sqlite3_value* value) {
    const auto* text = static_cast<const char16_t*>(sqlite3_value_text16(value));
    return QString::fromUtf16(text, sqlite3_value_bytes16(value) / qsizetype(sizeof(char16_t)));
}

void deletePattern(void* pattern) {
    delete static_cast<WildcardMatch*>(pattern);
}

void likeFunction(sqlite3_context* context, int argc, sqlite3_value** argv) {
    for (int i = 0; i < argc; ++i) {
        if (sqlite3_value_type(argv[i]) == SQLITE_NULL) {
            sqlite3_result_null(context);
            return;
        }
    }
    uint escape = WildcardMatch::DefaultEscape;
    if (argc == 3) {
        const QList<uint> escapeText = textArgument(argv[2]).toUcs4();
        if (escapeText.size() != 1) {
            sqlite3_result_error(context, "ESCAPE expression must be a single character", -1);
            return;
        }
        escape = escapeText.first();
    }
    // The prepared pattern is kept with the statement as long as the pattern argument stays
    // the same, so that a search over many rows folds and reads its pattern once.
    const auto* kept = static_cast<const WildcardMatch*>(sqlite3_get_auxdata(context, 0));
    if (kept && kept->Escape() == escape) {
        sqlite3_result_int(context, kept->Matches(textArgument(argv[1])) ? MatchResult : 0);
        return;
    }
    auto prepared = std::make_unique<WildcardMatch>(textArgument(argv[0]), escape);
    sqlite3_result_int(context, prepared->Matches(textArgument(argv[1])) ? MatchResult : 0);
    // SQLite may free the pattern at once, so nothing uses it after this call
    sqlite3_set_auxdata(context, 0, prepared.release(), deletePattern);
}

void registerWithArguments(sqlite3* handle, int argumentCount) {
    const int code =
        sqlite3_create_function_v2(handle, "like", argumentCount, SQLITE_UTF16 | SQLITE_DETERMINISTIC,
                                   nullptr, likeFunction, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK)
        throw ESQLiteError(QString::fromUtf8(sqlite3_errmsg(handle)), code);
}

} // namespace

void SQLiteLikeFunction::Register(sqlite3* handle) {
    registerWithArguments(handle, 2);
    registerWithArguments(handle, 3);
}

} // namespace norvik
