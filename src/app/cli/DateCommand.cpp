#include "DateCommand.h"

#include "DateUtils.h"
#include "TDateTimeUtils.h"

using namespace norvik;

int DateCommand::run(QStringList arguments, QTextStream& out, QTextStream&) const {
    const bool unset = takeSwitch(arguments, QStringLiteral("--unset"));
    TDateTime value = 0;
    const int result = TryTextToDate(onlyArgument(arguments), value, unset);
    out << result << ' ' << TDateTimeUtils::toQDateTime(value).toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"))
        << '\n';
    return result == 1 ? CliSuccess : CliFailure;
}
