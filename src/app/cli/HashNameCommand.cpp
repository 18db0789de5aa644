#include "HashNameCommand.h"

#include "NameHash.h"

int HashNameCommand::run(QStringList arguments, QTextStream& out, QTextStream&) const {
    out << QStringLiteral("%1")
               .arg(norvik::NameHash(onlyArgument(arguments)), 8, 16, QLatin1Char('0'))
               .toUpper()
        << '\n';
    return CliSuccess;
}
