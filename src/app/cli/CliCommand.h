#pragma once

#include "ECliUsage.h"

#include <QString>
#include <QStringList>
#include <QTextStream>

// The exit codes of orvenna-cli.
enum CliExitCode : int {
    CliSuccess = 0,
    // the operation itself reported that it failed
    CliFailure = 1,
    // the command line was wrong; the message went to standard error
    CliUsageError = 2,
};

// One subcommand of orvenna-cli: it prints its result to out, says what went wrong on err, and
// tells by its exit code whether the operation succeeded.
class CliCommand {
public:
    virtual ~CliCommand() = default;

    virtual QString name() const = 0;
    // the arguments as the usage text shows them
    virtual QString synopsis() const = 0;
    // runs with the arguments behind the subcommand's name; raises ECliUsage when they don't fit
    virtual int run(QStringList arguments, QTextStream& out, QTextStream& err) const = 0;

protected:
    // removes the switch from the arguments and tells whether it was there
    static bool takeSwitch(QStringList& arguments, const QString& name);
    // removes an option and its value ("--out FILE") and gives the value; empty when absent
    static QString takeOption(QStringList& arguments, const QString& name);
    static QString onlyArgument(const QStringList& arguments);
    // the one argument, or fallback when there is none
    static QString optionalArgument(const QStringList& arguments, const QString& fallback);
};
