#pragma once

#include "CliCommand.h"

// The whole MEDRPT interchange of one report, UNT and UNZ included, as UTF-8 text. The report's
// text and reason are the values "AText" and "AReason".
class MedrptTextCommand : public CliCommand {
public:
    QString name() const override { return QStringLiteral("medrpt-text"); }
    QString synopsis() const override { return QStringLiteral("--values FILE [--date yyyy-mm-dd]"); }
    int run(QStringList arguments, QTextStream& out, QTextStream&) const override;
};
