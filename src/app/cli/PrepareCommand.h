#pragma once

#include "CliCommand.h"

// The wizard's start without its window: the catalogue, the content handed over and the
// therapists, then every control's value, the catalogue's answers and the merge fields.
class PrepareCommand : public CliCommand {
public:
    QString name() const override { return QStringLiteral("prepare"); }
    QString synopsis() const override {
        return QStringLiteral("--content SOURCE [--questions SOURCE] [--therapists FILE]");
    }
    int run(QStringList arguments, QTextStream& out, QTextStream& err) const override;
};
