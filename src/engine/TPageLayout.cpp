#include "TPageLayout.h"

#include "DocUnits.h"

#include <QAbstractTextDocumentLayout>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <algorithm>

namespace engine {

namespace {

constexpr double kTolerance = 0.5;

// a body squeezed by huge headers still gets an inch, so that the letter always ends
const double kMinimumBodyHeight = units::kLayoutDpi;

struct TReference {
    double start;
    double length;
};

TReference horizontalReference(const TDocShape::TRelative relative, const QSizeF& page,
                               const QMarginsF& margins) {
    switch (relative) {
    case TDocShape::TRelative::Page:
        return {0.0, page.width()};
    case TDocShape::TRelative::LeftMargin:
        return {0.0, margins.left()};
    case TDocShape::TRelative::RightMargin:
        return {page.width() - margins.right(), margins.right()};
    default:
        return {margins.left(), page.width() - margins.left() - margins.right()};
    }
}

TReference verticalReference(const TDocShape::TRelative relative, const QSizeF& page,
                             const QMarginsF& margins, double paragraphTop) {
    switch (relative) {
    case TDocShape::TRelative::Page:
        return {0.0, page.height()};
    case TDocShape::TRelative::TopMargin:
        return {0.0, margins.top()};
    case TDocShape::TRelative::BottomMargin:
        return {page.height() - margins.bottom(), margins.bottom()};
    case TDocShape::TRelative::Paragraph:
        return {paragraphTop, 0.0};
    default:
        return {margins.top(), page.height() - margins.top() - margins.bottom()};
    }
}

double place(const TDocShape::TAxis& axis, const TReference& reference, double size) {
    switch (axis.align) {
    case TDocShape::TAlign::Start:
        return reference.start;
    case TDocShape::TAlign::Center:
        return reference.start + (reference.length - size) / 2.0;
    case TDocShape::TAlign::End:
        return reference.start + reference.length - size;
    case TDocShape::TAlign::Offset:
        break;
    }
    return reference.start + axis.offset;
}

} // namespace

TPageLayout::TPageLayout(TDocument& document)
    : m_document(document) {
    m_document.prepareLayout();
    collectLines();
    const auto& sections = m_document.sections();
    double start = 0.0;
    for (int index = 0; index < int(sections.size()); ++index) {
        const double end = qMax(start, sectionEnd(sections[index]));
        // a section that doesn't start a page goes on where the one before ended
        const bool continues = index > 0 && !sections[index].startsNewPage;
        if (continues) {
            TPage& last = m_pages.back();
            last.bodyEnd = pageEnd(last.bodyStart, last.bodyStart + last.bodyRect.height(), end);
            start = last.bodyEnd;
        }
        for (int pageInSection = continues ? 1 : 0; pageInSection == 0 || start < end - kTolerance;
             ++pageInSection) {
            TPage page = framePage(index, pageInSection);
            page.bodyStart = start;
            page.bodyEnd = pageEnd(start, start + page.bodyRect.height(), end);
            m_pages.push_back(page);
            start = page.bodyEnd;
        }
        start = end;
    }
}

void TPageLayout::collectLines() {
    const QTextDocument& text = m_document.body().text();
    for (QTextBlock block = text.begin(); block.isValid(); block = block.next()) {
        const QTextLayout* layout = block.layout();
        const QRectF rect = text.documentLayout()->blockBoundingRect(block);
        const double origin = rect.top() - layout->boundingRect().top();
        for (int i = 0; i < layout->lineCount(); ++i) {
            const QTextLine line = layout->lineAt(i);
            m_lines.push_back({origin + line.y(), origin + line.y() + line.height()});
        }
        if (block.blockFormat().pageBreakPolicy() & QTextFormat::PageBreak_AlwaysBefore)
            m_forcedBreaks.push_back(rect.top());
    }
}

double TPageLayout::sectionEnd(const TDocSection& section) const {
    const QTextDocument& text = m_document.body().text();
    const bool isLast = &section == &m_document.sections().back();
    if (isLast || section.lastParagraph.isNull())
        return text.documentLayout()->documentSize().height();
    return text.documentLayout()->blockBoundingRect(section.lastParagraph.block()).bottom();
}

double TPageLayout::pageEnd(double start, double limit, double sectionEnd) const {
    double end = qMin(limit, sectionEnd);
    for (double forced : m_forcedBreaks) {
        if (forced > start + kTolerance && forced < end)
            end = forced;
    }
    if (end >= sectionEnd)
        return sectionEnd;
    // move the break up until it cuts no line
    for (bool moved = true; moved;) {
        moved = false;
        for (const TLine& line : m_lines) {
            if (line.top < end - kTolerance && line.bottom > end + kTolerance &&
                line.top > start + kTolerance) {
                end = line.top;
                moved = true;
            }
        }
    }
    return end > start + kTolerance ? end : qMin(limit, sectionEnd);
}

int TPageLayout::kindOf(const TDocSection& section, int pageInSection, int pageNumber) const {
    if (pageInSection == 0 && section.differentFirstPage)
        return TDocSection::First;
    if (m_document.evenAndOddHeaders && pageNumber % 2 == 0)
        return TDocSection::Even;
    return TDocSection::Primary;
}

TPageLayout::TPage TPageLayout::framePage(int sectionIndex, int pageInSection) const {
    const TDocSection& section = m_document.sections().at(sectionIndex);
    const int kind = kindOf(section, pageInSection, int(m_pages.size()) + 1);
    TPage page;
    page.section = sectionIndex;
    page.pageSize = section.pageSize;
    page.header = section.header(kind);
    page.footer = section.footer(kind);
    const QMarginsF& margins = section.margins;
    const double pageHeight = section.pageSize.height();

    page.headerOrigin = QPointF(margins.left(), section.headerDistance);
    const double headerBottom = section.headerDistance + (page.header ? page.header->height() : 0.0);
    const double footerHeight = page.footer ? page.footer->height() : 0.0;
    page.footerOrigin = QPointF(margins.left(), pageHeight - section.footerDistance - footerHeight);

    // the body starts below the lower of top margin and header, and ends above the footer
    const double bodyTop = qMax(margins.top(), headerBottom);
    const double bodyBottom = qMin(pageHeight - margins.bottom(), page.footerOrigin.y());
    page.bodyRect =
        QRectF(margins.left(), bodyTop, section.bodyWidth(), qMax(kMinimumBodyHeight, bodyBottom - bodyTop));
    return page;
}

int TPageLayout::pageOfBodyPosition(double y) const {
    for (int index = 0; index < pageCount(); ++index) {
        if (y < m_pages[index].bodyEnd - kTolerance)
            return index;
    }
    return pageCount() - 1;
}

QRectF TPageLayout::shapeRect(const TPage& page, const TDocShape& shape, double paragraphTop) const {
    const QMarginsF& margins = section(page.section).margins;
    const double x =
        place(shape.horizontal, horizontalReference(shape.horizontal.relative, page.pageSize, margins),
              shape.size.width());
    const double y = place(shape.vertical,
                           verticalReference(shape.vertical.relative, page.pageSize, margins, paragraphTop),
                           shape.size.height());
    return QRectF(QPointF(x, y), shape.size);
}

} // namespace engine
