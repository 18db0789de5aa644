#pragma once

#include "TnvDataSet.h"

struct sqlite3_stmt;

namespace norvik {

class TnvSQLiteDatabase;

// The SQLite query: prepares the text, binds the positional parameters and steps through
// the result one row at a time. Column types come from the declared types of the table,
// so a DATETIME column reads back as a date.
class TnvOptimizedADQuery : public TnvDataSet {
public:
    explicit TnvOptimizedADQuery(TnvSQLiteDatabase& database)
        : FDatabase(database) {}
    ~TnvOptimizedADQuery() override;

    void Open() override;
    int ExecSQL() override;
    void Next() override;
    void Close() override;

private:
    TnvSQLiteDatabase& FDatabase;
    sqlite3_stmt* FStatement = nullptr;

    // the first statement of text; tail receives where the next one begins
    sqlite3_stmt* Prepare(const char* text, int size, const char** tail);
    void BindParams(sqlite3_stmt* statement);
    void BuildFields();
    // steps once; false at the end of the result
    bool Step(sqlite3_stmt* statement);
    void ReadRow();
    void Finalize();
};

} // namespace norvik
