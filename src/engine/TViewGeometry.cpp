#include "TViewGeometry.h"

#include "DocUnits.h"

#include <cmath>

namespace engine {

void TViewGeometry::setPageSizes(std::vector<QSizeF> sizes) {
    m_sizes = std::move(sizes);
    arrange();
}

void TViewGeometry::setScale(double zoom, double dpiX, double dpiY) {
    m_zoom = zoom;
    m_dpiX = dpiX;
    m_dpiY = dpiY;
    arrange();
}

void TViewGeometry::setViewportWidth(double width) {
    m_viewportWidth = width;
    arrange();
}

double TViewGeometry::pixelsPerLayoutX() const {
    return m_zoom * m_dpiX / units::kLayoutDpi;
}

double TViewGeometry::pixelsPerLayoutY() const {
    return m_zoom * m_dpiY / units::kLayoutDpi;
}

QRectF TViewGeometry::pageRect(int page) const {
    return page >= 0 && page < pageCount() ? m_rects[page] : QRectF();
}

QSizeF TViewGeometry::contentSize() const {
    return m_contentSize;
}

// Pages start on whole pixels, so that their edges stay sharp.
void TViewGeometry::arrange() {
    m_rects.clear();
    double widest = 0.0;
    for (const QSizeF& size : m_sizes)
        widest = qMax(widest, size.width() * pixelsPerLayoutX());
    const double width = qMax(widest + 2 * kGap, m_viewportWidth);
    double top = kGap;
    for (const QSizeF& size : m_sizes) {
        const QSizeF pixels(size.width() * pixelsPerLayoutX(), size.height() * pixelsPerLayoutY());
        const double left = std::floor((width - pixels.width()) / 2.0);
        m_rects.emplace_back(QPointF(left, std::round(top)), pixels);
        top += pixels.height() + kGap;
    }
    m_contentSize = m_sizes.empty() ? QSizeF() : QSizeF(std::ceil(widest + 2 * kGap), std::ceil(top));
}

int TViewGeometry::pageNearest(double contentY) const {
    for (int page = 0; page < pageCount(); ++page) {
        // the gap below a page belongs to it as far as its middle
        if (contentY < m_rects[page].bottom() + kGap / 2.0)
            return page;
    }
    return pageCount() - 1;
}

TViewGeometry::TPagePoint TViewGeometry::toPage(const QPointF& content) const {
    const int page = pageNearest(content.y());
    if (page < 0)
        return {};
    const QPointF offset = content - m_rects[page].topLeft();
    return {page, QPointF(offset.x() / pixelsPerLayoutX(), offset.y() / pixelsPerLayoutY())};
}

QPointF TViewGeometry::toContent(int page, const QPointF& pagePoint) const {
    const QRectF rect = pageRect(page);
    return rect.topLeft() + QPointF(pagePoint.x() * pixelsPerLayoutX(), pagePoint.y() * pixelsPerLayoutY());
}

QRectF TViewGeometry::toContent(int page, const QRectF& pageRect) const {
    return QRectF(toContent(page, pageRect.topLeft()), toContent(page, pageRect.bottomRight()));
}

} // namespace engine
