#include "TTabStops.h"

#include "DocUnits.h"
#include "TDerivedFormats.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <algorithm>
#include <utility>
#include <vector>

namespace engine {

namespace {

constexpr double kSame = 1e-6;

QVariantList positionsOf(const QList<QTextOption::Tab>& tabs) {
    QVariantList positions;
    for (const auto& tab : tabs)
        positions.append(tab.position);
    return positions;
}

bool sameStops(const QVariantList& a, const QVariantList& b) {
    if (a.size() != b.size())
        return false;
    for (qsizetype i = 0; i < a.size(); ++i) {
        if (qAbs(a[i].toDouble() - b[i].toDouble()) > kSame)
            return false;
    }
    return true;
}

// the moved distance in format units; none if the stops were set since they were moved
double movedBy(const QTextBlockFormat& format) {
    if (!format.hasProperty(TTabStops::kOriginProperty) ||
        !sameStops(format.property(TTabStops::kGivenProperty).toList(), positionsOf(format.tabPositions())))
        return 0.0;
    return units::toFormat(format.doubleProperty(TTabStops::kOriginProperty));
}

// Word's hanging indent is a stop of its own, unless a stop stands between the first line's
// start and the indent
void addHangingStop(QList<QTextOption::Tab>& tabs, const QTextBlockFormat& format) {
    if (format.textIndent() >= 0)
        return;
    const double indent = units::toFormat(format.leftMargin());
    const double start = units::toFormat(format.leftMargin() + format.textIndent());
    for (const auto& tab : tabs) {
        if (tab.position > start + kSame && tab.position <= indent + kSame)
            return;
    }
    tabs.append(QTextOption::Tab(indent, QTextOption::LeftTab));
    std::sort(tabs.begin(), tabs.end(), [](const auto& a, const auto& b) { return a.position < b.position; });
}

} // namespace

QList<QTextOption::Tab> TTabStops::wordTabs(const QTextBlockFormat& format) {
    const double moved = movedBy(format);
    QList<QTextOption::Tab> tabs = format.tabPositions();
    for (auto& tab : tabs)
        tab.position += moved;
    return tabs;
}

double TTabStops::wordPosition(const QTextBlockFormat& format, double qtPosition) {
    return qtPosition + movedBy(format);
}

void TTabStops::apply(QTextDocument& text) {
    std::vector<std::pair<QTextBlock, QTextBlockFormat>> changes;
    for (QTextBlock block = text.begin(); block.isValid(); block = block.next()) {
        QTextBlockFormat format = block.blockFormat();
        const double origin = format.leftMargin() + format.textIndent();
        QList<QTextOption::Tab> word = wordTabs(format);
        addHangingStop(word, format);
        const bool moved = format.hasProperty(kOriginProperty);
        const bool noStopAdded = word.size() == format.tabPositions().size();
        const bool unchanged =
            moved && noStopAdded &&
            sameStops(format.property(kGivenProperty).toList(), positionsOf(format.tabPositions())) &&
            qAbs(format.doubleProperty(kOriginProperty) - origin) < kSame;
        if (unchanged || (!moved && noStopAdded && qAbs(origin) < kSame))
            continue;
        // a stop left of the line's start stays, though the line has passed it
        QList<QTextOption::Tab> tabs = word;
        for (QTextOption::Tab& tab : tabs)
            tab.position -= units::toFormat(origin);
        format.setTabPositions(tabs);
        format.setProperty(kOriginProperty, origin);
        format.setProperty(kGivenProperty, positionsOf(tabs));
        changes.emplace_back(block, format);
    }
    if (changes.empty())
        return;
    TDerivedFormats::change(text, [&] {
        for (const auto& [block, format] : changes)
            QTextCursor(block).setBlockFormat(format);
    });
}

} // namespace engine
