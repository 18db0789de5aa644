#pragma once

#include "CliCommand.h"

namespace norvik {
class TnvDBConnection;
class TnvParams;
} // namespace norvik

// Works on a database file through the program's own connection, so that a statement is
// rewritten for SQLite and matched with the Unicode LIKE exactly as the program does it.
//   db query --db FILE SQL [PARAM...]   header line of field names, one line per row, tab-separated
//   db exec --db FILE SQL [PARAM...]    the number of rows affected
//   db genid --db FILE TABLE [COUNT]    the first of COUNT new IDs of the table
//   db structure|update ...             see DbStructureActions
// A PARAM of digits binds as a number, any other as text. A missing file is created.
class DbCommand : public CliCommand {
public:
    QString name() const override { return QStringLiteral("db"); }
    QString synopsis() const override {
        return QStringLiteral(
            "query|exec --db FILE SQL [PARAM...] | genid --db FILE TABLE [COUNT] | structure --db "
            "FILE | update --db FILE [--structure FILE]");
    }
    int run(QStringList arguments, QTextStream& out, QTextStream& err) const override;

private:
    static void Query(norvik::TnvDBConnection& conn, QStringList arguments, QTextStream& out);
    static void Exec(norvik::TnvDBConnection& conn, QStringList arguments, QTextStream& out);
    static void GenID(norvik::TnvDBConnection& conn, const QStringList& arguments, QTextStream& out);
    static void BindParams(const QStringList& texts, norvik::TnvParams& params);
};
