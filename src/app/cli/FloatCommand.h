#pragma once

#include "CliCommand.h"

// A number from free text: the result code, a blank, the value with a point.
class FloatCommand : public CliCommand {
public:
    QString name() const override { return QStringLiteral("float"); }
    QString synopsis() const override { return QStringLiteral("TEXT"); }
    int run(QStringList arguments, QTextStream& out, QTextStream&) const override;
};
