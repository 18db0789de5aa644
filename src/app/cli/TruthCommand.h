#pragma once

#include "CliCommand.h"

// Whether a text counts as yes: "true" or "false".
class TruthCommand : public CliCommand {
public:
    QString name() const override { return QStringLiteral("truth"); }
    QString synopsis() const override { return QStringLiteral("TEXT"); }
    int run(QStringList arguments, QTextStream& out, QTextStream&) const override;
};
