#pragma once

#include "CliCommand.h"

// The hash of the built-in structure, or of a structure file, as the data module computes it
// to decide whether the database needs a structure check:
//   hash-structure [FILE]    eight upper-case hexadecimal digits
class HashStructureCommand : public CliCommand {
public:
    QString name() const override { return QStringLiteral("hash-structure"); }
    QString synopsis() const override { return QStringLiteral("[FILE]"); }
    int run(QStringList arguments, QTextStream& out, QTextStream& err) const override;
};
