#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>

namespace norvik {

// Byte arrays inside JSON text: a string that begins with the mark U+FFF0 holds the bytes
// as base64 behind it, in the standard alphabet with "=" as padding.
class TJSONBase64 {
public:
    static constexpr char16_t Mark = 0xFFF0;

    // the bytes of a marked text; empty when the mark is missing or the base64 is broken
    static QByteArray BytesFromText(const QString& text);
    // Strict decoding: the length must be a multiple of four, and exactly the number of
    // bytes that length and padding promise must come out; otherwise false and no bytes.
    static bool Decode(QStringView base64, QByteArray& bytes);
};

} // namespace norvik
