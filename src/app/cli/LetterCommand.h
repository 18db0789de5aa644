#pragma once

#include "CliCommand.h"

// The letter as the wizard builds it on its last page, as PDF, as DOCX or both: the wizard's start
// with the content and the catalogue given, the presets of the content standing as the answers.
class LetterCommand : public CliCommand {
public:
    QString name() const override { return QStringLiteral("letter"); }
    QString synopsis() const override {
        return QStringLiteral(
            "--content SOURCE [--questions SOURCE] [--template FILE] [--memo TEXT] [--pdf OUT] [--docx OUT]");
    }
    int run(QStringList arguments, QTextStream& out, QTextStream& err) const override;
};
