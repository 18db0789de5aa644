#pragma once

#include "CliCommand.h"

// The checks of a social insurance number: its form without and with the zero serial, and the
// wizard's field check.
class SVNrCommand : public CliCommand {
public:
    QString name() const override { return QStringLiteral("svnr"); }
    QString synopsis() const override { return QStringLiteral("TEXT"); }
    int run(QStringList arguments, QTextStream& out, QTextStream&) const override;
};
