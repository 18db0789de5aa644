#pragma once

class QPaintDevice;

// The engine lays text out on a virtual device of 1200 dots per inch, so that the layout is the
// same on every machine and exact enough for print. Word measures in twips (1/1440 inch),
// half-points, 240ths of a line and EMU (1/914400 inch); the engine's document unit, in which
// callers give tab stops, is 1/300 inch.
namespace engine::units {

constexpr double kLayoutDpi = 1200.0;

constexpr double fromTwips(double twips) {
    return twips * kLayoutDpi / 1440.0;
}
constexpr double fromEmu(double emu) {
    return emu * kLayoutDpi / 914400.0;
}
constexpr double fromPoints(double points) {
    return points * kLayoutDpi / 72.0;
}
constexpr double fromDocumentUnits(double units) {
    return units * kLayoutDpi / 300.0;
}
constexpr double toDocumentUnits(double layout) {
    return layout * 300.0 / kLayoutDpi;
}
constexpr double toPoints(double layout) {
    return layout * 72.0 / kLayoutDpi;
}

// Lengths inside text formats (space above and below paragraphs, tab stops, cell padding,
// picture sizes) are given to Qt in its logical pixels, which it scales to the layout device
// itself. A paragraph's left and right indent and its first-line indent Qt takes as they are,
// in device pixels: those are given in layout units.
double toFormat(double layout);
double fromFormat(double format);

// the device on which all text of the engine is laid out
QPaintDevice* layoutDevice();

} // namespace engine::units
