#pragma once

#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <vector>

namespace engine {

// Where the pages of a document stand on the screen: one below the other, centred, with a gap
// of grey around each, at a zoom factor and the screen's resolution. Maps between pixels of the
// whole scrollable area ("content pixels") and points on a page in layout units.
class TViewGeometry {
public:
    // pixels of background between the pages and around them
    static constexpr double kGap = 16.0;

    struct TPagePoint {
        int page = -1;
        // in layout units from the page's top left corner; may lie outside the page
        QPointF point;
    };

    // the pages' sizes in layout units
    void setPageSizes(std::vector<QSizeF> sizes);
    // zoom 1.0 shows a page at its physical size at this resolution (dots per inch)
    void setScale(double zoom, double dpiX, double dpiY);
    // pages narrower than the visible width are centred in it
    void setViewportWidth(double width);

    double zoom() const { return m_zoom; }
    double pixelsPerLayoutX() const;
    double pixelsPerLayoutY() const;
    int pageCount() const { return int(m_sizes.size()); }
    QRectF pageRect(int page) const;
    QSizeF contentSize() const;

    // the page nearest to a height of the content, -1 without pages
    int pageNearest(double contentY) const;
    // a point of the content on the page nearest to it
    TPagePoint toPage(const QPointF& content) const;
    QPointF toContent(int page, const QPointF& pagePoint) const;
    QRectF toContent(int page, const QRectF& pageRect) const;

private:
    void arrange();

    std::vector<QSizeF> m_sizes;
    std::vector<QRectF> m_rects;
    double m_zoom = 1.0;
    double m_dpiX = 96.0;
    double m_dpiY = 96.0;
    double m_viewportWidth = 0.0;
    QSizeF m_contentSize;
};

} // namespace engine
