#pragma once

#include "CliCommand.h"

// One feedback from start to outbox on the built-in demo content, without a window: the
// letter as PDF and the file a DaMe client would pick up.
class DemoCommand : public CliCommand {
public:
    QString name() const override { return QStringLiteral("demo"); }
    QString synopsis() const override { return QStringLiteral("--out DIR"); }
    int run(QStringList arguments, QTextStream& out, QTextStream& err) const override;
};
