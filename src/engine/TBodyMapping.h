#pragma once

#include "TPageLayout.h"

#include <QRectF>
#include <vector>

namespace engine {

// Finds where a text position of the body stands on the pages of a layout, and which position
// stands at a point of a page. Points and rectangles on a page are in layout units from the
// page's top left corner.
class TBodyMapping {
public:
    struct TPlace {
        int page = -1;
        QRectF rect;
    };

    explicit TBodyMapping(const TPageLayout& layout);

    // the position nearest to a point of a page; points off the body count for its edge
    int positionAt(int page, const QPointF& pagePoint) const;
    // the caret's line at a position: no width, the height of its line
    TPlace caretPlace(int position) const;
    // the stretches of the lines between two positions, in reading order
    std::vector<TPlace> selectionPlaces(int start, int end) const;

private:
    TPlace onPage(const QRectF& bodyRect) const;

    const TPageLayout& m_layout;
};

} // namespace engine
