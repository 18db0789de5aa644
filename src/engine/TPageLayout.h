#pragma once

#include "TDocument.h"

#include <QRectF>
#include <memory>
#include <vector>

namespace engine {

// Breaks the body of a document into pages. Each page shows a slice of the body between its
// header and its footer; a slice ends at a line boundary, before a forced page break, or where
// a section ends. All lengths in layout units.
class TPageLayout {
public:
    struct TPage {
        int section = 0;
        // the slice of the body on this page, in the body's own coordinates
        double bodyStart = 0.0;
        double bodyEnd = 0.0;
        // where that slice stands on the page
        QRectF bodyRect;
        std::shared_ptr<TSubDocument> header;
        std::shared_ptr<TSubDocument> footer;
        QPointF headerOrigin;
        QPointF footerOrigin;
        QSizeF pageSize;
    };

    explicit TPageLayout(TDocument& document);

    int pageCount() const { return int(m_pages.size()); }
    const TPage& page(int index) const { return m_pages.at(index); }
    const TDocument& document() const { return m_document; }
    const TDocSection& section(int index) const { return m_document.sections().at(index); }

    // the page on which a position of the body (in its coordinates) stands
    int pageOfBodyPosition(double y) const;
    // the rectangle of a shape on a page; paragraphTop is the top of its paragraph on the page
    QRectF shapeRect(const TPage& page, const TDocShape& shape, double paragraphTop) const;

private:
    struct TLine {
        double top;
        double bottom;
    };

    void collectLines();
    double sectionEnd(const TDocSection& section) const;
    double pageEnd(double start, double limit, double sectionEnd) const;
    int kindOf(const TDocSection& section, int pageInSection, int pageNumber) const;
    TPage framePage(int sectionIndex, int pageInSection) const;

    TDocument& m_document;
    std::vector<TLine> m_lines;
    std::vector<double> m_forcedBreaks;
    std::vector<TPage> m_pages;
};

} // namespace engine
