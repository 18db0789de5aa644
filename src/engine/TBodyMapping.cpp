#include "TBodyMapping.h"

#include "DocUnits.h"

#include <QAbstractTextDocumentLayout>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

namespace engine {

namespace {

// a selected paragraph end shows as a small stretch behind the line's text
const double kParagraphEndWidth = units::fromPoints(4.0);

const QTextDocument& bodyText(const TPageLayout& layout) {
    return layout.document().body().text();
}

// the top left corner of a block's lines in the body's coordinates
QPointF originOf(const QTextBlock& block) {
    const QRectF rect = block.document()->documentLayout()->blockBoundingRect(block);
    return rect.topLeft() - block.layout()->boundingRect().topLeft();
}

QRectF lineStretch(const QTextBlock& block, const QTextLine& line, int from, int to, double extra) {
    const QPointF origin = originOf(block);
    const double left = line.cursorToX(from - block.position());
    const double right = line.cursorToX(to - block.position()) + extra;
    return QRectF(origin.x() + left, origin.y() + line.y(), right - left, line.height());
}

} // namespace

TBodyMapping::TBodyMapping(const TPageLayout& layout)
    : m_layout(layout) {}

int TBodyMapping::positionAt(int page, const QPointF& pagePoint) const {
    if (page < 0 || page >= m_layout.pageCount())
        return 0;
    const TPageLayout::TPage& slice = m_layout.page(page);
    const double last = qMax(slice.bodyStart, slice.bodyEnd - 1.0);
    const double y = qBound(slice.bodyStart, pagePoint.y() - slice.bodyRect.top() + slice.bodyStart, last);
    const QPointF bodyPoint(pagePoint.x() - slice.bodyRect.left(), y);
    const int position = bodyText(m_layout).documentLayout()->hitTest(bodyPoint, Qt::FuzzyHit);
    return qMax(0, position);
}

TBodyMapping::TPlace TBodyMapping::caretPlace(int position) const {
    const QTextDocument& text = bodyText(m_layout);
    const QTextBlock block = text.findBlock(position);
    if (!block.isValid() || !block.layout() || block.layout()->lineCount() == 0)
        return {};
    const QTextLine line = block.layout()->lineForTextPosition(position - block.position());
    const QTextLine valid = line.isValid() ? line : block.layout()->lineAt(block.layout()->lineCount() - 1);
    return onPage(lineStretch(block, valid, position, position, 0.0));
}

std::vector<TBodyMapping::TPlace> TBodyMapping::selectionPlaces(int start, int end) const {
    std::vector<TPlace> places;
    if (start >= end)
        return places;
    const QTextDocument& text = bodyText(m_layout);
    for (QTextBlock block = text.findBlock(start); block.isValid() && block.position() <= end;
         block = block.next()) {
        const QTextLayout* layout = block.layout();
        for (int i = 0; layout && i < layout->lineCount(); ++i) {
            const QTextLine line = layout->lineAt(i);
            const int lineStart = block.position() + line.textStart();
            const int lineEnd = lineStart + line.textLength();
            const int from = qMax(start, lineStart);
            const int to = qMin(end, lineEnd);
            const bool paragraphEndSelected = i == layout->lineCount() - 1 && end > lineEnd;
            if (from > to || (from == to && !paragraphEndSelected))
                continue;
            const double extra = paragraphEndSelected ? kParagraphEndWidth : 0.0;
            places.push_back(onPage(lineStretch(block, line, from, to, extra)));
        }
    }
    return places;
}

TBodyMapping::TPlace TBodyMapping::onPage(const QRectF& bodyRect) const {
    const int page = m_layout.pageOfBodyPosition(bodyRect.top() + 1.0);
    if (page < 0)
        return {};
    const TPageLayout::TPage& slice = m_layout.page(page);
    const QPointF shift(slice.bodyRect.left(), slice.bodyRect.top() - slice.bodyStart);
    return {page, bodyRect.translated(shift)};
}

} // namespace engine
