#include "Scaling.h"

#include <QGuiApplication>
#include <QScreen>
#include <cstdlib>
#include <limits>

namespace norvik {

int FormScalePercent = 100;

int MulDiv(int ANumber, int ANumerator, int ADenominator) {
    if (ADenominator == 0)
        return -1;
    const long long product = static_cast<long long>(ANumber) * ANumerator;
    long long quotient = product / ADenominator;
    const long long remainder = product % ADenominator;
    if (2 * std::llabs(remainder) >= std::llabs(static_cast<long long>(ADenominator)))
        quotient += ((product < 0) != (ADenominator < 0)) ? -1 : 1;
    if (quotient > std::numeric_limits<int>::max() || quotient < std::numeric_limits<int>::min())
        return -1;
    return static_cast<int>(quotient);
}

int ScaleFor(int APixels, int APixelsPerInch) {
    return MulDiv(APixels, APixelsPerInch, DesignPixelsPerInch);
}

int Scale(int APixels) {
    return ScaleFor(APixels, ScreenPixelsPerInch());
}

int ScreenPixelsPerInch() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? qRound(screen->logicalDotsPerInch()) : DesignPixelsPerInch;
}

} // namespace norvik
