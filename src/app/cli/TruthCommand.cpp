#include "TruthCommand.h"

#include "FormatUtils.h"

int TruthCommand::run(QStringList arguments, QTextStream& out, QTextStream&) const {
    out << (norvik::IsTrueText(onlyArgument(arguments)) ? "true" : "false") << '\n';
    return CliSuccess;
}
