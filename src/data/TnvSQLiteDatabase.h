#pragma once

#include <QString>
#include <QStringList>

struct sqlite3;

namespace norvik {

// One open SQLite database file: the engine object behind a connection. Opening creates a
// missing file (UTF-8 text), replaces SQLite's LIKE by the system's Unicode match and sets
// the journal so that a committed row survives a power cut.
class TnvSQLiteDatabase {
public:
    TnvSQLiteDatabase() = default;
    ~TnvSQLiteDatabase();
    TnvSQLiteDatabase(const TnvSQLiteDatabase&) = delete;
    TnvSQLiteDatabase& operator=(const TnvSQLiteDatabase&) = delete;

    void Open(const QString& fileName);
    void Close();
    bool IsOpen() const { return FHandle != nullptr; }
    sqlite3* Handle() const { return FHandle; }
    const QString& FileName() const { return FFileName; }

    // runs statements without parameters or result
    void Exec(const QString& sql);
    void StartTransaction();
    void Commit();
    void Rollback();
    bool InTransaction() const;
    // rows changed by the last statement
    int Changes() const;

    // raises ESQLiteError with the engine's text for code
    [[noreturn]] void RaiseError(int code) const;
    static QString ExtendedCodeName(int extendedCode);

private:
    sqlite3* FHandle = nullptr;
    QString FFileName;

    void ApplyJournalSettings();
    bool IsPrimaryKeyCollision(const QString& AMessage) const;
};

} // namespace norvik
