#pragma once

#include "CliCommand.h"

// A date from free text: the result code, a blank, the value as "yyyy-mm-dd hh:nn:ss". With
// --unset the parse starts without today's day, month and year.
class DateCommand : public CliCommand {
public:
    QString name() const override { return QStringLiteral("date"); }
    QString synopsis() const override { return QStringLiteral("TEXT [--unset]"); }
    int run(QStringList arguments, QTextStream& out, QTextStream&) const override;
};
