#pragma once

#include <QString>

namespace norvik {

// The text rules of the EDIFACT syntax the outbox message is written in: release of the
// syntax characters and the splitting of free text into FTX segments.
class TnvEdifactText {
public:
    static constexpr QChar ReleaseCharacter = u'?';
    // components of 70 characters, five of them to a segment
    static constexpr int FTXComponentLength = 70;
    static constexpr int FTXComponentsPerSegment = 5;

    // puts the release character before each ":", ".", "+", "'" and "?" in one pass, so a
    // release character written by the pass itself is never released again
    static QString Release(const QString& AText);
    // cuts blanks and control characters from both ends
    static QString Trim(const QString& AText);
    // what a released value looks like in the message: released first, trimmed after
    static QString ReleaseAndTrim(const QString& AText);
    // The segments "<prefix><components>'" of a free text, each with up to five components of
    // 70 characters; ASegmentCounter rises by one per segment. A cut may fall between a
    // release character and the character it releases.
    static QString FTXSegments(const QString& APrefix, const QString& AText, int& ASegmentCounter);

private:
    static QString FTXSegmentBody(QString& ARemaining);
};

} // namespace norvik
