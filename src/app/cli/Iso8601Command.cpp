#include "Iso8601Command.h"

#include "DateUtils.h"
#include "TDateTimeUtils.h"

#include <cmath>
#include <limits>

using namespace norvik;

int Iso8601Command::run(QStringList arguments, QTextStream& out, QTextStream&) const {
    const bool utc = takeSwitch(arguments, QStringLiteral("--utc"));
    // no date is NaN, so the default tells a failed parse apart from every result
    const TDateTime noDate = std::numeric_limits<double>::quiet_NaN();
    const TDateTime value = ISO8601TextToDate(onlyArgument(arguments), utc, noDate);
    if (std::isnan(value)) {
        out << "default\n";
        return CliFailure;
    }
    out << TDateTimeUtils::toQDateTime(value).toString(QStringLiteral("yyyy-MM-dd HH:mm:ss.zzz")) << '\n';
    return CliSuccess;
}
