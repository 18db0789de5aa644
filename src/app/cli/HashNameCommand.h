#pragma once

#include "CliCommand.h"

// The name hash with which the data layer recognises system fields, as eight upper-case
// hexadecimal digits.
class HashNameCommand : public CliCommand {
public:
    QString name() const override { return QStringLiteral("hash-name"); }
    QString synopsis() const override { return QStringLiteral("TEXT"); }
    int run(QStringList arguments, QTextStream& out, QTextStream& err) const override;
};
