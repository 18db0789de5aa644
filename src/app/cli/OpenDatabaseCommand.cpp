#include "OpenDatabaseCommand.h"

#include "TmodData.h"

int OpenDatabaseCommand::run(QStringList arguments, QTextStream& out, QTextStream& err) const {
    if (!arguments.isEmpty())
        throw ECliUsage(QStringLiteral("expects no arguments"));
    TmodData module;
    const bool opened = module.OpenDatabase();
    out << "database=" << TmodData::DatabasePath() << '\n'
        << "settings=" << TmodData::SettingsPath() << '\n'
        << "checked=" << (module.StructureChecked() ? "yes" : "no") << '\n'
        << "hash=" << module.Hash() << '\n';
    if (opened)
        return CliSuccess;
    err << "open-database: the database could not be opened or brought up to date\n";
    return CliFailure;
}
