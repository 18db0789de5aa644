#include "DocUnits.h"

#include <QImage>

// Qt's text layout scales format lengths by the device's resolution over this value; it is
// exported by QtGui but not declared in a public header.
Q_GUI_EXPORT int qt_defaultDpiY();

namespace engine::units {

namespace {

double formatScale() {
    return kLayoutDpi / qt_defaultDpiY();
}

} // namespace

double toFormat(double layout) {
    return layout / formatScale();
}

double fromFormat(double format) {
    return format * formatScale();
}

QPaintDevice* layoutDevice() {
    static QImage device = [] {
        QImage image(1, 1, QImage::Format_ARGB32);
        const int dotsPerMeter = qRound(kLayoutDpi / 0.0254);
        image.setDotsPerMeterX(dotsPerMeter);
        image.setDotsPerMeterY(dotsPerMeter);
        return image;
    }();
    return &device;
}

} // namespace engine::units
