#pragma once

#include "CliCommand.h"

// The two parameter tables after filling them from the arguments: the lines of CmdParams, a line
// "--", the lines of AppParams; the ExeName entries are left out.
class ParamsCommand : public CliCommand {
public:
    QString name() const override { return QStringLiteral("params"); }
    QString synopsis() const override { return QStringLiteral("ARG..."); }
    int run(QStringList arguments, QTextStream& out, QTextStream&) const override;
};
