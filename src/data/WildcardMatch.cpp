#include "WildcardMatch.h"

#include <QVarLengthArray>

namespace norvik {

namespace {

// pattern and value are folded alike, one code point at a time
template <class Buffer> void appendFolded(const QString& text, Buffer& folded) {
    for (qsizetype i = 0; i < text.size(); ++i) {
        uint code = text.at(i).unicode();
        if (QChar::isHighSurrogate(code) && i + 1 < text.size() && text.at(i + 1).isLowSurrogate())
            code = QChar::surrogateToUcs4(char16_t(code), text.at(++i).unicode());
        folded.append(QChar::toCaseFolded(code));
    }
}

} // namespace

WildcardMatch::WildcardMatch(const QString& pattern, uint escape)
    : FEscape(escape) {
    QList<uint> folded;
    appendFolded(pattern, folded);
    const uint foldedEscape = QChar::toCaseFolded(escape);
    FPattern.reserve(folded.size());
    for (qsizetype i = 0; i < folded.size(); ++i) {
        // an escape at the very end stands for itself
        if (folded[i] == foldedEscape && i + 1 < folded.size()) {
            FPattern.append({folded[++i], true});
            continue;
        }
        FPattern.append({folded[i], false});
    }
}

// Greedy match with one backtrack point: the last '%' seen. Each '%' only ever moves the
// point forward, so the cost stays at pattern length times value length at worst.
bool WildcardMatch::Matches(const QString& value) const {
    // folded code point by code point into a buffer on the stack: no allocation per row
    QVarLengthArray<uint, 256> folded;
    appendFolded(value, folded);
    const auto isAnyRun = [](const PatternChar& c) { return !c.literal && c.code == u'%'; };
    const auto matchesOne = [](const PatternChar& c, uint v) {
        return (!c.literal && c.code == u'_') || c.code == v;
    };
    qsizetype p = 0;
    qsizetype v = 0;
    qsizetype starPattern = -1;
    qsizetype starValue = 0;
    while (v < folded.size()) {
        if (p < FPattern.size() && isAnyRun(FPattern[p])) {
            starPattern = p++;
            starValue = v;
        } else if (p < FPattern.size() && matchesOne(FPattern[p], folded[v])) {
            ++p;
            ++v;
        } else if (starPattern >= 0) {
            p = starPattern + 1;
            v = ++starValue;
        } else {
            return false;
        }
    }
    while (p < FPattern.size() && isAnyRun(FPattern[p]))
        ++p;
    return p == FPattern.size();
}

bool WildcardMatch::Matches(const QString& pattern, const QString& value, uint escape) {
    return WildcardMatch(pattern, escape).Matches(value);
}

} // namespace norvik
