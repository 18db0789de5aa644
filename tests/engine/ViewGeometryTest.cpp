#include "DocUnits.h"
#include "TViewGeometry.h"

#include <gtest/gtest.h>

using engine::TViewGeometry;

namespace {

const QSizeF kA4(engine::units::fromTwips(11906), engine::units::fromTwips(16838));
const QSizeF kA5Landscape(engine::units::fromTwips(11906), engine::units::fromTwips(8419));

TViewGeometry geometryOf(std::vector<QSizeF> pages, double zoom, double dpiX, double dpiY, double width) {
    TViewGeometry geometry;
    geometry.setPageSizes(std::move(pages));
    geometry.setScale(zoom, dpiX, dpiY);
    geometry.setViewportWidth(width);
    return geometry;
}

struct TRoundTrip {
    double zoom;
    double dpiX;
    double dpiY;
    int page;
    QPointF point;
};

} // namespace

TEST(ViewGeometry, PagePointsSurviveTheWayToPixelsAndBack) {
    const TRoundTrip cases[] = {
        {1.0, 96, 96, 0, {0, 0}},
        {1.0, 96, 96, 1, {1234.5, 6789.25}},
        {0.1, 96, 96, 2, {kA5Landscape.width(), kA5Landscape.height()}},
        {2.5, 144, 72, 1, {100, 14000}},
        {0.37, 120, 120, 2, {-50, 20}},
    };
    for (const TRoundTrip& c : cases) {
        const TViewGeometry geometry = geometryOf({kA4, kA4, kA5Landscape}, c.zoom, c.dpiX, c.dpiY, 700);
        const QPointF pixels = geometry.toContent(c.page, c.point);
        const TViewGeometry::TPagePoint back = geometry.toPage(pixels);
        // a point just off a page's edge still belongs to that page
        if (geometry.pageRect(c.page).adjusted(0, -1, 0, 1).contains(pixels)) {
            EXPECT_EQ(back.page, c.page) << c.zoom;
        }
        const QPointF again = geometry.toContent(back.page, back.point);
        EXPECT_NEAR(again.x(), pixels.x(), 1e-6) << c.zoom;
        EXPECT_NEAR(again.y(), pixels.y(), 1e-6) << c.zoom;
        EXPECT_NEAR(back.point.x(), c.point.x(), 1e-6) << c.zoom;
        EXPECT_NEAR(back.point.y(), c.point.y(), 1e-6) << c.zoom;
    }
}

TEST(ViewGeometry, PagesStandOneBelowTheOtherCentredWithGaps) {
    const TViewGeometry geometry = geometryOf({kA4, kA5Landscape}, 0.5, 96, 96, 1000);
    const double scale = 0.5 * 96 / engine::units::kLayoutDpi;
    const QRectF first = geometry.pageRect(0);
    const QRectF second = geometry.pageRect(1);
    EXPECT_NEAR(first.width(), kA4.width() * scale, 1e-9);
    EXPECT_NEAR(first.height(), kA4.height() * scale, 1e-9);
    EXPECT_EQ(first.top(), TViewGeometry::kGap);
    EXPECT_NEAR(second.top(), first.bottom() + TViewGeometry::kGap, 1.0);
    EXPECT_NEAR(first.center().x(), 500, 1.0);
    EXPECT_NEAR(second.center().x(), 500, 1.0);
    EXPECT_NEAR(geometry.contentSize().width(), kA4.width() * scale + 2 * TViewGeometry::kGap, 1.0);
    EXPECT_NEAR(geometry.contentSize().height(), second.bottom() + TViewGeometry::kGap, 1.0);
    EXPECT_TRUE(geometry.pageRect(2).isNull());
}

TEST(ViewGeometry, PagesWiderThanTheViewStartAtTheGap) {
    const TViewGeometry geometry = geometryOf({kA4}, 3.0, 96, 96, 500);
    EXPECT_EQ(geometry.pageRect(0).left(), TViewGeometry::kGap);
    EXPECT_GT(geometry.contentSize().width(), 500);
}

TEST(ViewGeometry, PointsInTheGapGoToTheNearerPage) {
    const TViewGeometry geometry = geometryOf({kA4, kA4}, 1.0, 96, 96, 900);
    const double gapMiddle = geometry.pageRect(0).bottom() + TViewGeometry::kGap / 2.0;
    EXPECT_EQ(geometry.toPage(QPointF(100, -5)).page, 0);
    EXPECT_EQ(geometry.toPage(QPointF(100, gapMiddle - 2)).page, 0);
    EXPECT_EQ(geometry.toPage(QPointF(100, gapMiddle + 2)).page, 1);
    EXPECT_EQ(geometry.toPage(QPointF(100, 1.0e6)).page, 1);
    EXPECT_EQ(geometryOf({}, 1.0, 96, 96, 900).toPage(QPointF(10, 10)).page, -1);
}
