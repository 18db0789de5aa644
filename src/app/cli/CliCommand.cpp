#include "CliCommand.h"

bool CliCommand::takeSwitch(QStringList& arguments, const QString& name) {
    return arguments.removeAll(name) > 0;
}

QString CliCommand::takeOption(QStringList& arguments, const QString& name) {
    const qsizetype at = arguments.indexOf(name);
    if (at < 0)
        return QString();
    if (at + 1 >= arguments.size())
        throw ECliUsage(QStringLiteral("%1 needs a value").arg(name));
    const QString value = arguments.at(at + 1);
    arguments.remove(at, 2);
    return value;
}

QString CliCommand::onlyArgument(const QStringList& arguments) {
    if (arguments.size() != 1)
        throw ECliUsage(QStringLiteral("expects exactly one argument, got %1").arg(arguments.size()));
    return arguments.first();
}

QString CliCommand::optionalArgument(const QStringList& arguments, const QString& fallback) {
    if (arguments.size() > 1)
        throw ECliUsage(QStringLiteral("expects at most one argument, got %1").arg(arguments.size()));
    return arguments.isEmpty() ? fallback : arguments.first();
}
