#include "ZipCityCommand.h"

#include "TZIPCityParts.h"

int ZipCityCommand::run(QStringList arguments, QTextStream& out, QTextStream&) const {
    const TZIPCityParts parts = TZIPCityParts::Split(onlyArgument(arguments));
    out << parts.Country << '|' << parts.PostalCode << '|' << parts.City << '\n';
    return CliSuccess;
}
