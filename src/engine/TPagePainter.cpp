#include "TPagePainter.h"

#include "DocUnits.h"
#include "TTabLeaders.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QTextBlock>
#include <QTextDocument>
#include <limits>

namespace engine {

namespace {

// wide enough for anything that sticks out of its column, such as a table
constexpr double kHorizontalReach = 1.0e6;
// half a dot of the layout device
constexpr double kEdge = 0.5;

double paragraphTopOf(const TDocShape& shape) {
    const QTextDocument* text = shape.anchor.document();
    if (!text)
        return 0.0;
    return text->documentLayout()->blockBoundingRect(shape.anchor.block()).top();
}

} // namespace

TPagePainter::TPagePainter(const TPageLayout& layout)
    : m_layout(layout) {}

void TPagePainter::paint(QPainter& painter, int pageIndex) const {
    const TPageLayout::TPage& page = m_layout.page(pageIndex);
    paintShapes(painter, page, TLayer::Behind);
    constexpr double whole = std::numeric_limits<double>::max();
    if (page.header)
        paintFlow(painter, *page.header, page.headerOrigin, 0.0, whole);
    if (page.footer)
        paintFlow(painter, *page.footer, page.footerOrigin, 0.0, whole);
    const QPointF bodyOrigin(page.bodyRect.left(), page.bodyRect.top() - page.bodyStart);
    paintFlow(painter, m_layout.document().body(), bodyOrigin, page.bodyStart, page.bodyEnd);
    paintShapes(painter, page, TLayer::InFront);
}

void TPagePainter::paintFlow(QPainter& painter, const TSubDocument& flow, const QPointF& origin, double from,
                             double to) const {
    const QTextDocument& text = flow.text();
    const double height = qMin(to, text.documentLayout()->documentSize().height() + 1.0) - from;
    if (height <= 0)
        return;
    const QRectF visible(-kHorizontalReach, from, 2 * kHorizontalReach, height);
    painter.save();
    painter.translate(origin);
    painter.setClipRect(visible, Qt::IntersectClip);
    // Lines that only touch the slice belong to the page before or after; the layout draws
    // every line that meets its clip, so the clip it gets stays off the edges.
    QAbstractTextDocumentLayout::PaintContext context;
    context.clip = visible.adjusted(0, kEdge, 0, -kEdge);
    context.palette.setColor(QPalette::Text, Qt::black);
    text.documentLayout()->draw(&painter, context);
    TTabLeaders::paint(painter, text, context.clip);
    painter.restore();
}

void TPagePainter::paintShapes(QPainter& painter, const TPageLayout::TPage& page, TLayer layer) const {
    if (page.header)
        paintShapesOf(painter, page, *page.header, page.headerOrigin, layer, false);
    if (page.footer)
        paintShapesOf(painter, page, *page.footer, page.footerOrigin, layer, false);
    const QPointF bodyOrigin(page.bodyRect.left(), page.bodyRect.top() - page.bodyStart);
    paintShapesOf(painter, page, m_layout.document().body(), bodyOrigin, layer, true);
}

void TPagePainter::paintShapesOf(QPainter& painter, const TPageLayout::TPage& page, const TSubDocument& flow,
                                 const QPointF& origin, TLayer layer, bool isBody) const {
    const int pageIndex = int(&page - &m_layout.page(0));
    for (const auto& shape : flow.shapes()) {
        if (shape->behindText != (layer == TLayer::Behind))
            continue;
        const double paragraphTop = paragraphTopOf(*shape);
        if (isBody && m_layout.pageOfBodyPosition(paragraphTop) != pageIndex)
            continue;
        paintShape(painter, *shape, m_layout.shapeRect(page, *shape, origin.y() + paragraphTop));
    }
}

void TPagePainter::paintShape(QPainter& painter, const TDocShape& shape, const QRectF& rect) const {
    painter.save();
    painter.setPen(shape.border);
    painter.setBrush(shape.fill);
    if (shape.border.style() != Qt::NoPen || shape.fill.style() != Qt::NoBrush)
        painter.drawRect(rect);
    if (!shape.picture.isNull())
        painter.drawImage(rect, shape.picture);
    painter.restore();
    if (shape.hasTextBox()) {
        const QPointF inner = rect.topLeft() + QPointF(shape.textInsets.left(), shape.textInsets.top());
        paintFlow(painter, *shape.textBox, inner, 0.0, std::numeric_limits<double>::max());
    }
}

} // namespace engine
