#pragma once

#include "CliCommand.h"

// The question catalogue as the wizard builds it: one JSON object per entry, then a line
// "actual=" with whether the catalogue had its question list.
class QuestionsCommand : public CliCommand {
public:
    QString name() const override { return QStringLiteral("questions"); }
    QString synopsis() const override { return QStringLiteral("[SOURCE]"); }
    int run(QStringList arguments, QTextStream& out, QTextStream&) const override;
};
