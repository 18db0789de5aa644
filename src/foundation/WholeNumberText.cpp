#include "WholeNumberText.h"

namespace norvik {

namespace {

int digitValue(char16_t c) {
    if (c >= u'0' && c <= u'9')
        return c - u'0';
    if (c >= u'a' && c <= u'f')
        return c - u'a' + 10;
    if (c >= u'A' && c <= u'F')
        return c - u'A' + 10;
    return -1;
}

} // namespace

bool TryWholeNumberText(const QString& text, int bitWidth, qint64& result) {
    qsizetype i = 0;
    const qsizetype n = text.size();
    while (i < n && text.at(i).unicode() <= u' ')
        ++i;
    bool negative = false;
    if (i < n && (text.at(i) == u'-' || text.at(i) == u'+'))
        negative = text.at(i++) == u'-';
    int base = 10;
    if (i < n && text.at(i) == u'$') {
        base = 16;
        ++i;
    } else if (i + 1 < n && text.at(i) == u'0' && (text.at(i + 1) == u'x' || text.at(i + 1) == u'X')) {
        base = 16;
        i += 2;
    }
    if (i >= n)
        return false;
    const quint64 allBits = bitWidth >= 64 ? ~quint64(0) : (quint64(1) << bitWidth) - 1;
    const quint64 signedMax = allBits >> 1;
    const quint64 limit = base == 16 ? allBits : signedMax + (negative ? 1 : 0);
    quint64 value = 0;
    for (; i < n; ++i) {
        const int digit = digitValue(text.at(i).unicode());
        if (digit < 0 || digit >= base)
            return false;
        if (value > (limit - quint64(digit)) / quint64(base))
            return false;
        value = value * quint64(base) + quint64(digit);
    }
    quint64 bits = (negative ? 0 - value : value) & allBits;
    // the top bit of the width is the sign
    if (bitWidth < 64 && (bits & (quint64(1) << (bitWidth - 1))))
        bits |= ~allBits;
    result = qint64(bits);
    return true;
}

} // namespace norvik
