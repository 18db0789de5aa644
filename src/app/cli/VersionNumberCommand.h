#pragma once

#include "CliCommand.h"

// The ten-digit number text of a version, as the updater compares it.
class VersionNumberCommand : public CliCommand {
public:
    QString name() const override { return QStringLiteral("version-number"); }
    QString synopsis() const override { return QStringLiteral("TEXT"); }
    int run(QStringList arguments, QTextStream& out, QTextStream&) const override;
};
