#pragma once

#include "TPageLayout.h"

class QPainter;

namespace engine {

// Draws one page of a laid-out document onto any painter: screen, printer, picture or PDF.
// The painter works in layout units; the caller scales it to its device.
class TPagePainter {
public:
    explicit TPagePainter(const TPageLayout& layout);

    void paint(QPainter& painter, int pageIndex) const;

private:
    enum class TLayer { Behind, InFront };

    void paintFlow(QPainter& painter, const TSubDocument& flow, const QPointF& origin, double from,
                   double to) const;
    void paintShapes(QPainter& painter, const TPageLayout::TPage& page, TLayer layer) const;
    void paintShapesOf(QPainter& painter, const TPageLayout::TPage& page, const TSubDocument& flow,
                       const QPointF& origin, TLayer layer, bool isBody) const;
    void paintShape(QPainter& painter, const TDocShape& shape, const QRectF& rect) const;

    const TPageLayout& m_layout;
};

} // namespace engine
