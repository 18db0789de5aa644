#include "HashLittle.h"

namespace {

constexpr quint32 rot(quint32 x, int k) {
    return (x << k) | (x >> (32 - k));
}

void mix(quint32& a, quint32& b, quint32& c) {
    a -= c;
    a ^= rot(c, 4);
    c += b;
    b -= a;
    b ^= rot(a, 6);
    a += c;
    c -= b;
    c ^= rot(b, 8);
    b += a;
    a -= c;
    a ^= rot(c, 16);
    c += b;
    b -= a;
    b ^= rot(a, 19);
    a += c;
    c -= b;
    c ^= rot(b, 4);
    b += a;
}

void finalMix(quint32& a, quint32& b, quint32& c) {
    c ^= b;
    c -= rot(b, 14);
    a ^= c;
    a -= rot(c, 11);
    b ^= a;
    b -= rot(a, 25);
    c ^= b;
    c -= rot(b, 16);
    a ^= c;
    a -= rot(c, 4);
    b ^= a;
    b -= rot(a, 14);
    c ^= b;
    c -= rot(b, 24);
}

// up to four bytes from AFrom on, the first in the lowest position
quint32 littleEndianWord(const quint8* AKey, size_t AFrom, size_t ACount) {
    quint32 word = 0;
    for (size_t i = 0; i < ACount && i < 4; ++i)
        word |= quint32(AKey[AFrom + i]) << (8 * i);
    return word;
}

} // namespace

quint32 hashlittle(const void* AKey, size_t ALength, quint32 AInitValue) {
    const auto* key = static_cast<const quint8*>(AKey);
    quint32 a = 0xdeadbeef + quint32(ALength) + AInitValue;
    quint32 b = a;
    quint32 c = a;
    size_t length = ALength;
    while (length > 12) {
        a += littleEndianWord(key, 0, 4);
        b += littleEndianWord(key, 4, 4);
        c += littleEndianWord(key, 8, 4);
        mix(a, b, c);
        length -= 12;
        key += 12;
    }
    if (length == 0)
        return c;
    a += littleEndianWord(key, 0, length);
    if (length > 4)
        b += littleEndianWord(key, 4, length - 4);
    if (length > 8)
        c += littleEndianWord(key, 8, length - 8);
    finalMix(a, b, c);
    return c;
}
