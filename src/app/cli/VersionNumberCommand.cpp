#include "VersionNumberCommand.h"

#include "AppUtils.h"

int VersionNumberCommand::run(QStringList arguments, QTextStream& out, QTextStream&) const {
    out << norvik::VersionToNumberText(onlyArgument(arguments)) << '\n';
    return CliSuccess;
}
