#include "BirthDateCommand.h"

#include "TDateTimeUtils.h"
#include "TSVNr.h"

int BirthDateCommand::run(QStringList arguments, QTextStream& out, QTextStream&) const {
    const norvik::TDateTime date = TSVNr::BirthDateOf(onlyArgument(arguments));
    if (date == 0)
        out << "0\n";
    else
        out << norvik::TDateTimeUtils::toDate(date).toString(QStringLiteral("yyyy-MM-dd")) << '\n';
    return CliSuccess;
}
