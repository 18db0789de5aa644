#pragma once

#include "CliCommand.h"

// The date of birth the export takes from a social insurance number, "yyyy-mm-dd", or "0".
class BirthDateCommand : public CliCommand {
public:
    QString name() const override { return QStringLiteral("birthdate"); }
    QString synopsis() const override { return QStringLiteral("SVNR"); }
    int run(QStringList arguments, QTextStream& out, QTextStream&) const override;
};
