#include "TJSONBase64.h"

#include <array>

namespace norvik {

namespace {

constexpr int NoDigit = -1;

// value of each character below 128 as a base64 digit; "=" and all else are no digit
const std::array<int, 128>& digitTable() {
    static const std::array<int, 128> table = [] {
        std::array<int, 128> result;
        result.fill(NoDigit);
        const char alphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
        for (int i = 0; i < 64; ++i)
            result[size_t(alphabet[i])] = i;
        return result;
    }();
    return table;
}

} // namespace

QByteArray TJSONBase64::BytesFromText(const QString& text) {
    QByteArray bytes;
    if (text.startsWith(QChar(Mark)))
        Decode(QStringView(text).mid(1), bytes);
    return bytes;
}

bool TJSONBase64::Decode(QStringView base64, QByteArray& bytes) {
    bytes.clear();
    if (base64.size() % 4 != 0)
        return false;
    qsizetype padding = 0;
    while (padding < 2 && padding < base64.size() && base64[base64.size() - 1 - padding] == u'=')
        ++padding;
    const qsizetype expected = base64.size() / 4 * 3 - padding;
    const auto& table = digitTable();
    QByteArray decoded;
    decoded.reserve(expected);
    quint32 bits = 0;
    int bitCount = 0;
    for (const QChar c : base64) {
        // a character outside the alphabet, padding included, ends the decoding
        const int digit = c.unicode() < 128 ? table[c.unicode()] : NoDigit;
        if (digit == NoDigit)
            break;
        bits = (bits << 6) | quint32(digit);
        bitCount += 6;
        if (bitCount >= 8) {
            bitCount -= 8;
            decoded.append(char((bits >> bitCount) & 0xFF));
        }
    }
    if (decoded.size() != expected)
        return false;
    bytes = decoded;
    return true;
}

} // namespace norvik
