#include "TnvEdifactText.h"

namespace norvik {

namespace {

bool IsSyntaxCharacter(QChar c) {
    return c == u':' || c == u'.' || c == u'+' || c == u'\'' || c == u'?';
}

bool IsBlankOrControl(QChar c) {
    return c.unicode() <= u' ';
}

} // namespace

QString TnvEdifactText::Release(const QString& AText) {
    QString result;
    result.reserve(AText.size() * 2);
    for (const QChar c : AText) {
        if (IsSyntaxCharacter(c))
            result += ReleaseCharacter;
        result += c;
    }
    return result;
}

QString TnvEdifactText::Trim(const QString& AText) {
    qsizetype first = 0;
    qsizetype last = AText.size() - 1;
    while (first <= last && IsBlankOrControl(AText.at(first)))
        ++first;
    while (last >= first && IsBlankOrControl(AText.at(last)))
        --last;
    return AText.mid(first, last - first + 1);
}

QString TnvEdifactText::ReleaseAndTrim(const QString& AText) {
    return Trim(Release(AText));
}

QString TnvEdifactText::FTXSegments(const QString& APrefix, const QString& AText, int& ASegmentCounter) {
    QString remaining = ReleaseAndTrim(AText);
    QString segments;
    while (!remaining.isEmpty()) {
        segments += APrefix + FTXSegmentBody(remaining) + u'\'';
        ++ASegmentCounter;
    }
    return segments;
}

QString TnvEdifactText::FTXSegmentBody(QString& ARemaining) {
    QString body;
    for (int component = 0; component < FTXComponentsPerSegment; ++component) {
        const QString piece = Trim(ARemaining.left(FTXComponentLength));
        ARemaining.remove(0, FTXComponentLength);
        // the separator only stands between two texts, never before or behind an empty one
        if (!body.isEmpty() && !piece.isEmpty())
            body += u':';
        body = Trim(body + piece);
    }
    return body;
}

} // namespace norvik
