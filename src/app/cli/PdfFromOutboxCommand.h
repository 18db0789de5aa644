#pragma once

#include "CliCommand.h"

// The PDF part of an outbox file: the MEDRPT text stands in front, the PDF's bytes follow
// from "%PDF" on.
class PdfFromOutboxCommand : public CliCommand {
public:
    QString name() const override { return QStringLiteral("pdf-from-outbox"); }
    QString synopsis() const override { return QStringLiteral("FILE --out PDF"); }
    int run(QStringList arguments, QTextStream& out, QTextStream& err) const override;
};
