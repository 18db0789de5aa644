#pragma once

#include "CliCommand.h"

// Parses JSON from a file or standard input: the kind of the result, then its written text.
class JsonCommand : public CliCommand {
public:
    QString name() const override { return QStringLiteral("json"); }
    QString synopsis() const override { return QStringLiteral("[FILE]"); }
    int run(QStringList arguments, QTextStream& out, QTextStream& err) const override;
};
