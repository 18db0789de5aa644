#pragma once

#include "CliCommand.h"

// Writes the outbox file of a feedback: the MEDRPT line and the PDF behind it.
class MedrptCommand : public CliCommand {
public:
    QString name() const override { return QStringLiteral("medrpt"); }
    QString synopsis() const override {
        return QStringLiteral("--values FILE --pdf FILE [--date yyyy-mm-dd]");
    }
    int run(QStringList arguments, QTextStream& out, QTextStream& err) const override;
};
