#include "TnvSQLiteDatabase.h"

#include "ESQLiteError.h"
#include "SQLiteLikeFunction.h"

#include <sqlite3.h>

namespace norvik {

namespace {

// a worker's pooled clone waits this long for the main connection's write to end
constexpr int BusyTimeoutMSecs = 5000;

} // namespace

TnvSQLiteDatabase::~TnvSQLiteDatabase() {
    Close();
}

void TnvSQLiteDatabase::Open(const QString& fileName) {
    Close();
    sqlite3* handle = nullptr;
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_FULLMUTEX;
    const int code = sqlite3_open_v2(fileName.toUtf8().constData(), &handle, flags, nullptr);
    if (code != SQLITE_OK) {
        const QString message =
            handle ? QString::fromUtf8(sqlite3_errmsg(handle)) : QString::fromUtf8(sqlite3_errstr(code));
        sqlite3_close_v2(handle);
        throw ESQLiteError(message + QStringLiteral(" (%1)").arg(ExtendedCodeName(code)), code);
    }
    FHandle = handle;
    FFileName = fileName;
    sqlite3_extended_result_codes(FHandle, 1);
    sqlite3_busy_timeout(FHandle, BusyTimeoutMSecs);
    try {
        Exec(QStringLiteral("PRAGMA encoding = 'UTF-8'"));
        ApplyJournalSettings();
        SQLiteLikeFunction::Register(FHandle);
    } catch (...) {
        Close();
        throw;
    }
}

// Each commit is on the disk before the call returns (synchronous FULL), and the rollback
// journal keeps the database one complete file at every moment, so that a copy of the file
// taken between two writes holds every stored feedback.
void TnvSQLiteDatabase::ApplyJournalSettings() {
    Exec(QStringLiteral("PRAGMA journal_mode = DELETE"));
    Exec(QStringLiteral("PRAGMA synchronous = FULL"));
}

void TnvSQLiteDatabase::Close() {
    if (!FHandle)
        return;
    sqlite3_close_v2(FHandle);
    FHandle = nullptr;
}

void TnvSQLiteDatabase::Exec(const QString& sql) {
    char* error = nullptr;
    const int code = sqlite3_exec(FHandle, sql.toUtf8().constData(), nullptr, nullptr, &error);
    sqlite3_free(error);
    if (code != SQLITE_OK)
        RaiseError(code);
}

void TnvSQLiteDatabase::StartTransaction() {
    Exec(QStringLiteral("BEGIN"));
}

void TnvSQLiteDatabase::Commit() {
    Exec(QStringLiteral("COMMIT"));
}

void TnvSQLiteDatabase::Rollback() {
    Exec(QStringLiteral("ROLLBACK"));
}

bool TnvSQLiteDatabase::InTransaction() const {
    return FHandle && sqlite3_get_autocommit(FHandle) == 0;
}

int TnvSQLiteDatabase::Changes() const {
    return FHandle ? sqlite3_changes(FHandle) : 0;
}

void TnvSQLiteDatabase::RaiseError(int code) const {
    const int extended = FHandle ? sqlite3_extended_errcode(FHandle) : code;
    const QString text =
        FHandle ? QString::fromUtf8(sqlite3_errmsg(FHandle)) : QString::fromUtf8(sqlite3_errstr(code));
    QString name = ExtendedCodeName(extended);
    if (extended == SQLITE_CONSTRAINT_UNIQUE && IsPrimaryKeyCollision(text))
        name += QStringLiteral(", primary key");
    throw ESQLiteError(text + QStringLiteral(" (%1)").arg(name), extended);
}

// A unique index on the key fields is checked before the primary key itself and reports a
// plain UNIQUE failure: "UNIQUE constraint failed: tblAdressen.ADRID". Whether the fields
// named are the table's primary key decides whether it is a key collision.
bool TnvSQLiteDatabase::IsPrimaryKeyCollision(const QString& AMessage) const {
    const QString prefix = QStringLiteral("UNIQUE constraint failed: ");
    if (!AMessage.startsWith(prefix))
        return false;
    QString table;
    QStringList columns;
    for (const QString& qualified : AMessage.mid(prefix.size()).split(QStringLiteral(", "))) {
        table = qualified.section(QLatin1Char('.'), 0, 0);
        columns.append(qualified.section(QLatin1Char('.'), 1).toLower());
    }
    sqlite3_stmt* statement = nullptr;
    const QByteArray sql = QStringLiteral("PRAGMA table_info('%1')").arg(table).toUtf8();
    if (sqlite3_prepare_v2(FHandle, sql.constData(), int(sql.size()), &statement, nullptr) != SQLITE_OK)
        return false;
    QStringList keyColumns;
    while (sqlite3_step(statement) == SQLITE_ROW) {
        if (sqlite3_column_int(statement, 5) > 0)
            keyColumns.append(
                QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, 1)))
                    .toLower());
    }
    sqlite3_finalize(statement);
    columns.sort();
    keyColumns.sort();
    return !keyColumns.isEmpty() && columns == keyColumns;
}

QString TnvSQLiteDatabase::ExtendedCodeName(int extendedCode) {
    switch (extendedCode) {
    case SQLITE_CONSTRAINT_PRIMARYKEY:
        return QStringLiteral("SQLITE_CONSTRAINT_PRIMARYKEY");
    case SQLITE_CONSTRAINT_UNIQUE:
        return QStringLiteral("SQLITE_CONSTRAINT_UNIQUE");
    case SQLITE_CONSTRAINT_NOTNULL:
        return QStringLiteral("SQLITE_CONSTRAINT_NOTNULL");
    case SQLITE_CONSTRAINT_CHECK:
        return QStringLiteral("SQLITE_CONSTRAINT_CHECK");
    case SQLITE_CONSTRAINT_FOREIGNKEY:
        return QStringLiteral("SQLITE_CONSTRAINT_FOREIGNKEY");
    default:
        return QStringLiteral("SQLite error %1: %2")
            .arg(extendedCode)
            .arg(QString::fromUtf8(sqlite3_errstr(extendedCode)));
    }
}

} // namespace norvik
