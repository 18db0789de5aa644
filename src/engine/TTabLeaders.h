#pragma once

#include <QChar>
#include <QTextFormat>
#include <utility>
#include <vector>

class QPainter;
class QRectF;
class QTextBlockFormat;
class QTextDocument;

namespace engine {

// A tab stop may fill the space that a tab spans up to it with a leader: dots, hyphens, a line.
// Qt's tab stops have no leader, so the leaders stay in a property of the paragraph's format,
// by the stop's position, and are drawn over the laid-out text.
class TTabLeaders {
public:
    static constexpr int kProperty = QTextFormat::UserProperty + 15;

    // positions in Qt's format units, measured from the margin as Word does
    using TLeaders = std::vector<std::pair<double, QChar>>;

    static void set(QTextBlockFormat& format, const TLeaders& leaders);
    // the leader of the stop at that position; null if it has none
    static QChar leaderAt(const QTextBlockFormat& format, double position);

    // the leader character of an OpenXML leader name; null for "none" and unknown names
    static QChar fromName(const QString& name);
    static QString nameOf(QChar leader);

    // draws the leaders of all paragraphs that meet the visible rectangle (text coordinates)
    static void paint(QPainter& painter, const QTextDocument& text, const QRectF& visible);
};

} // namespace engine
