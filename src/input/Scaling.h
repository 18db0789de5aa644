#pragma once

namespace norvik {

// The pixel density forms and the framework's pixel constants are designed at.
constexpr int DesignPixelsPerInch = 96;

// ANumber * ANumerator / ADenominator with a 64-bit product, rounded to the nearest integer,
// halves away from zero. -1 when the denominator is 0 or the result does not fit.
int MulDiv(int ANumber, int ANumerator, int ADenominator);

// A pixel constant of the framework for a screen of the given density.
int ScaleFor(int APixels, int APixelsPerInch);
// A pixel constant of the framework for the primary screen.
int Scale(int APixels);
// the logical density of the primary screen; 96 without a screen
int ScreenPixelsPerInch();

// The form-level scale in percent that ResizeToScale applies; 100 leaves forms as they are.
extern int FormScalePercent;

} // namespace norvik
