#pragma once

#include "CliCommand.h"

// A location as one text split into "country|postal code|city".
class ZipCityCommand : public CliCommand {
public:
    QString name() const override { return QStringLiteral("zipcity"); }
    QString synopsis() const override { return QStringLiteral("TEXT"); }
    int run(QStringList arguments, QTextStream& out, QTextStream&) const override;
};
