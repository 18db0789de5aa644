#include "TTabLeaders.h"

#include "DocUnits.h"
#include "TTabStops.h"

#include <QAbstractTextDocumentLayout>
#include <QFontMetricsF>
#include <QPainter>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

namespace engine {

namespace {

const QString kPosition = QStringLiteral("position");
const QString kLeader = QStringLiteral("leader");
// a stop within a hundredth of a point is the same stop
constexpr double kSamePoints = 0.01;

struct TLeaderName {
    const char16_t* name;
    char16_t leader;
};
constexpr TLeaderName kLeaderNames[] = {
    {u"dot", u'.'}, {u"hyphen", u'-'}, {u"underscore", u'_'}, {u"heavy", u'_'}, {u"middleDot", u'\u00B7'}};

// the first stop behind x (layout units from the line's start) and its leader
QChar leaderOfTabAt(const QTextBlockFormat& format, double x) {
    for (const QTextOption::Tab& tab : format.tabPositions()) {
        if (units::fromFormat(tab.position) > x + 1.0)
            return TTabLeaders::leaderAt(format, TTabStops::wordPosition(format, tab.position));
    }
    return {};
}

// The leader fills the tab's span with whole characters that end where the tab ends.
void paintLeader(QPainter& painter, QChar leader, const QTextCharFormat& format, double from, double to,
                 double baseline) {
    const QFont font = format.font();
    const QFontMetricsF metrics(font, painter.device());
    const double width = metrics.horizontalAdvance(leader);
    const int count = width > 0 ? int((to - from) / width) : 0;
    if (count <= 0)
        return;
    painter.setFont(font);
    painter.setPen(format.foreground().color());
    painter.drawText(QPointF(to - count * width, baseline), QString(count, leader));
}

void paintBlock(QPainter& painter, const QTextBlock& block) {
    const QTextLayout* layout = block.layout();
    const QString text = block.text();
    // the layout's own position is relative to its frame; the block's rectangle starts where
    // the layout's origin stands in the document
    const QPointF origin = block.document()->documentLayout()->blockBoundingRect(block).topLeft();
    for (int index = 0; index < layout->lineCount(); ++index) {
        const QTextLine line = layout->lineAt(index);
        for (int at = line.textStart(); at < line.textStart() + line.textLength(); ++at) {
            if (text.at(at) != u'\t')
                continue;
            const double from = line.cursorToX(at);
            const QChar leader = leaderOfTabAt(block.blockFormat(), from - line.x());
            if (leader.isNull())
                continue;
            QTextCursor character(block);
            character.setPosition(block.position() + at + 1);
            paintLeader(painter, leader, character.charFormat(), origin.x() + from,
                        origin.x() + line.cursorToX(at + 1), origin.y() + line.y() + line.ascent());
        }
    }
}

} // namespace

void TTabLeaders::set(QTextBlockFormat& format, const TLeaders& leaders) {
    QVariantList list;
    for (const auto& [position, leader] : leaders) {
        if (!leader.isNull())
            list.append(QVariantMap{{kPosition, position}, {kLeader, QString(leader)}});
    }
    if (list.isEmpty())
        format.clearProperty(kProperty);
    else
        format.setProperty(kProperty, list);
}

QChar TTabLeaders::leaderAt(const QTextBlockFormat& format, double position) {
    const double samePosition = units::toFormat(units::fromPoints(kSamePoints));
    const QVariantList list = format.property(kProperty).toList();
    for (const QVariant& entry : list) {
        const QVariantMap stop = entry.toMap();
        const QString leader = stop.value(kLeader).toString();
        if (qAbs(stop.value(kPosition).toDouble() - position) < samePosition && !leader.isEmpty())
            return leader.front();
    }
    return {};
}

QChar TTabLeaders::fromName(const QString& name) {
    for (const auto& entry : kLeaderNames) {
        if (name == QStringView(entry.name))
            return QChar(entry.leader);
    }
    return {};
}

QString TTabLeaders::nameOf(QChar leader) {
    for (const auto& entry : kLeaderNames) {
        if (leader == QChar(entry.leader))
            return QString::fromUtf16(entry.name);
    }
    return QString();
}

void TTabLeaders::paint(QPainter& painter, const QTextDocument& text, const QRectF& visible) {
    painter.save();
    for (QTextBlock block = text.begin(); block.isValid(); block = block.next()) {
        if (!block.blockFormat().hasProperty(kProperty))
            continue;
        const QRectF rect = text.documentLayout()->blockBoundingRect(block);
        if (rect.bottom() >= visible.top() && rect.top() <= visible.bottom())
            paintBlock(painter, block);
    }
    painter.restore();
}

} // namespace engine
