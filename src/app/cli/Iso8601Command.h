#pragma once

#include "CliCommand.h"

// An ISO 8601 date as "yyyy-mm-dd hh:nn:ss.zzz", or "default" when it cannot be read. With
// --utc a given zone is taken off.
class Iso8601Command : public CliCommand {
public:
    QString name() const override { return QStringLiteral("iso8601"); }
    QString synopsis() const override { return QStringLiteral("TEXT [--utc]"); }
    int run(QStringList arguments, QTextStream& out, QTextStream&) const override;
};
