#pragma once

#include "CliCommand.h"

// Writes the built-in letter template, as the settings page saves it for a practice to adapt.
class TemplateCommand : public CliCommand {
public:
    QString name() const override { return QStringLiteral("template"); }
    QString synopsis() const override { return QStringLiteral("--out FILE"); }
    int run(QStringList arguments, QTextStream& out, QTextStream& err) const override;
};
