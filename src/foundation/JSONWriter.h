#pragma once

#include <QString>

namespace norvik {

class Variant;
struct TJSONVariantData;
using TDateTime = double;

// Compact JSON text: no white space, floats in general format with 15 digits and a point,
// dates as ISO 8601 local time, strings escaped only where they must be.
class JSONWriter {
public:
    static QString write(const TJSONVariantData& data);
    static QString valueText(const Variant& value);
    static QString quoted(const QString& text);
    // "" for 0, "yyyy-mm-dd" for a whole day, otherwise ISO 8601 with milliseconds and the
    // local offset ("Z" when the offset is zero)
    static QString dateText(TDateTime value);

private:
    static void append(QString& out, const TJSONVariantData& data);
    static void appendValue(QString& out, const Variant& value);
    static void appendQuoted(QString& out, const QString& text);
};

} // namespace norvik
