#pragma once

#include "CliCommand.h"

// Opens the database in the machine-wide folder as the program does on its first use, and
// tells where the files lie, whether the structure check ran, and the structure's hash:
//   open-database    database=<path>, settings=<path>, checked=<yes|no>, hash=<8 hex digits>
// The exit code is 1 if the opening failed.
class OpenDatabaseCommand : public CliCommand {
public:
    QString name() const override { return QStringLiteral("open-database"); }
    QString synopsis() const override { return QString(); }
    int run(QStringList arguments, QTextStream& out, QTextStream& err) const override;
};
