#pragma once

#include "CliCommand.h"

// A statement of the program's SQL as SQLite gets it; unbalanced brackets fail with the
// parser's error text.
class SqlCommand : public CliCommand {
public:
    QString name() const override { return QStringLiteral("sql"); }
    QString synopsis() const override { return QStringLiteral("TEXT"); }
    int run(QStringList arguments, QTextStream& out, QTextStream& err) const override;
};
