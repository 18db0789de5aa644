// Feeds arbitrary bytes, read as UTF-8 and as UTF-16, to the JSON parser. Whatever object or
// array comes out must be written as text that parses back to the very same text.

#include "JSONWriter.h"
#include "TJSONBase64.h"
#include "VariantJSON.h"

#include <QByteArray>
#include <QString>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

void checkRoundTrip(const QString& input) {
    const norvik::Variant parsed = norvik::JSONVariant(input);
    if (!parsed.isJSON())
        return;
    // a record whose kind was never decided writes as null, which reads back as Null
    const QString written = norvik::JSONWriter::valueText(parsed);
    const QString rewritten = norvik::JSONWriter::valueText(norvik::JSONVariant(written));
    if (rewritten != written) {
        std::fprintf(stderr, "written:   %s\nrewritten: %s\n", written.toUtf8().constData(),
                     rewritten.toUtf8().constData());
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    checkRoundTrip(QString::fromUtf8(bytes));
    checkRoundTrip(QString(reinterpret_cast<const QChar*>(bytes.constData()), qsizetype(size / 2)));
    QByteArray decoded;
    norvik::TJSONBase64::Decode(QString::fromLatin1(bytes), decoded);
    return 0;
}
