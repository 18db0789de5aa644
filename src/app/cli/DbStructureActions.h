#pragma once

#include <QStringList>
#include <QTextStream>

namespace norvik {
class TnvDBConnection;
}

// The structure actions of "db":
//   db structure --db FILE                    the structure text of the live database
//   db update --db FILE [--structure FILE]    brings the database to the built-in structure, or
//                                             to the file's; every statement run, one a line
// A line break inside a statement is written as "\r" and "\n", a backslash as "\\".
class DbStructureActions {
public:
    static bool Handles(const QString& AAction);
    static void Run(const QString& AAction, norvik::TnvDBConnection& AConn, QStringList AArguments,
                    QTextStream& AOut);

private:
    static void Structure(norvik::TnvDBConnection& AConn, const QStringList& AArguments, QTextStream& AOut);
    static void Update(norvik::TnvDBConnection& AConn, QStringList AArguments, QTextStream& AOut);
};
