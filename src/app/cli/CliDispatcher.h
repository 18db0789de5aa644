#pragma once

#include "CliCommand.h"

#include <QStringList>
#include <QTextStream>
#include <memory>
#include <vector>

// Reads the global options, picks the subcommand by its name and runs it. Usage errors go to
// standard error with the usage text and give the exit code 2.
class CliDispatcher {
public:
    CliDispatcher();
    // arguments without the program's own name
    int run(QStringList arguments, QTextStream& out, QTextStream& err) const;

private:
    const CliCommand* find(const QString& name) const;
    QString usage() const;
    static void takeGlobalOptions(QStringList& arguments);

    std::vector<std::unique_ptr<CliCommand>> m_commands;
};
