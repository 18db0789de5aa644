#include "NameHash.h"

#include "AnsiCodePage.h"

namespace norvik {

namespace {

constexpr quint32 GoldenRatio = 0x9e3779b9;

void mix(quint32& a, quint32& b, quint32& c) {
    a -= b;
    a -= c;
    a ^= (c >> 13);
    b -= c;
    b -= a;
    b ^= (a << 8);
    c -= a;
    c -= b;
    c ^= (b >> 13);
    a -= b;
    a -= c;
    a ^= (c >> 12);
    b -= c;
    b -= a;
    b ^= (a << 16);
    c -= a;
    c -= b;
    c ^= (b >> 5);
    a -= b;
    a -= c;
    a ^= (c >> 3);
    b -= c;
    b -= a;
    b ^= (a << 10);
    c -= a;
    c -= b;
    c ^= (b >> 15);
}

quint32 upperByte(char byte) {
    const auto value = static_cast<quint8>(byte);
    return value >= 'a' && value <= 'z' ? value - ('a' - 'A') : value;
}

// four bytes from offset on, little-endian, as far as count reaches
quint32 word(const QByteArray& bytes, qsizetype offset, qsizetype count) {
    quint32 result = 0;
    for (qsizetype i = 0; i < count && i < 4; ++i)
        result += upperByte(bytes.at(offset + i)) << (8 * i);
    return result;
}

} // namespace

quint32 NameHash(const QString& name) {
    const QByteArray bytes = platform::AnsiCodePage::encode(name);
    const auto length = static_cast<quint32>(bytes.size());
    quint32 a = GoldenRatio;
    quint32 b = GoldenRatio;
    quint32 c = 0;
    qsizetype offset = 0;
    qsizetype rest = bytes.size();
    while (rest >= 12) {
        a += word(bytes, offset, 4);
        b += word(bytes, offset + 4, 4);
        c += word(bytes, offset + 8, 4);
        mix(a, b, c);
        offset += 12;
        rest -= 12;
    }
    c += length;
    // the lowest byte of c holds the length, so the tail bytes of c start one place higher
    for (qsizetype i = 0; i < rest; ++i) {
        const quint32 value = upperByte(bytes.at(offset + i));
        if (i < 4)
            a += value << (8 * i);
        else if (i < 8)
            b += value << (8 * (i - 4));
        else
            c += value << (8 * (i - 7));
    }
    mix(a, b, c);
    return c;
}

} // namespace norvik
