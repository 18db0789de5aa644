#include "DateUtils.h"
#include "FormatUtils.h"

#include <QString>
#include <cstddef>
#include <cstdint>

// Whatever a person types must give a result or a failure, never a crash or a hang; the same
// for a format that a caller passes on.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), qsizetype(size));
    norvik::TDateTime date = 0;
    norvik::TryTextToDate(text, date, false);
    norvik::TryTextToDate(text, date, true);
    double number = 0;
    norvik::TryTextToFloat(text, number);
    norvik::ISO8601TextToDate(text, false, 0);
    norvik::ISO8601TextToDate(text, true, 0);
    // the text as a caller's format, for what was just read or else 18.03.2026 10:30
    const norvik::Variant moment = norvik::Variant::fromDate(date > 0 ? date : 46099.4375);
    norvik::FormatDateValue(text, norvik::FormatKind::CallersFormat, moment, false);
    norvik::FormatNumberValue(text, norvik::FormatKind::CallersFormat, number, 2);
    return 0;
}
