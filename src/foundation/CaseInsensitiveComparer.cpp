#include "CaseInsensitiveComparer.h"

#include <QChar>

namespace norvik {

namespace {

// the code point at index, case folded; index moves past it (surrogate pairs included)
char32_t nextFoldedCodePoint(QStringView text, qsizetype& index) {
    const char16_t unit = text[index++].unicode();
    // most names are plain ASCII: spare them the Unicode tables
    if (unit < 0x80)
        return unit >= u'A' && unit <= u'Z' ? unit + (u'a' - u'A') : unit;
    char32_t codePoint = unit;
    if (QChar::isHighSurrogate(unit) && index < text.size() && text[index].isLowSurrogate())
        codePoint = QChar::surrogateToUcs4(unit, text[index++].unicode());
    return QChar::toCaseFolded(codePoint);
}

} // namespace

std::size_t CaseInsensitiveComparer::operator()(QStringView name) const {
    // FNV-1a over the folded code points
    std::size_t hash = 14695981039346656037ull;
    for (qsizetype i = 0; i < name.size();) {
        hash ^= nextFoldedCodePoint(name, i);
        hash *= 1099511628211ull;
    }
    return hash;
}

bool CaseInsensitiveComparer::operator()(QStringView left, QStringView right) const {
    qsizetype i = 0;
    qsizetype j = 0;
    while (i < left.size() && j < right.size()) {
        if (nextFoldedCodePoint(left, i) != nextFoldedCodePoint(right, j))
            return false;
    }
    return i == left.size() && j == right.size();
}

} // namespace norvik
