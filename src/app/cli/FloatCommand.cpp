#include "FloatCommand.h"

#include "FormatUtils.h"

int FloatCommand::run(QStringList arguments, QTextStream& out, QTextStream&) const {
    double value = 0;
    const int result = norvik::TryTextToFloat(onlyArgument(arguments), value);
    out << result << ' ' << QString::number(value, 'g', 15) << '\n';
    // 1 is a parsed number; 0 (no number) and 2 (empty text) are failures
    return result == 1 ? CliSuccess : CliFailure;
}
