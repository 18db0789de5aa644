#pragma once

#include <QFont>
#include <QPalette>
#include <QString>
#include <memory>

namespace norvik {

// The colours and the font the program's forms are drawn in.
struct TnvColorScheme {
    QString Name;
    QPalette Palette;
    // the palette's text font, which forms that want it take as their own
    QFont Font;
};

// the scheme in force; none until the program installs one
std::shared_ptr<const TnvColorScheme> CurrentColorScheme();
// Installs the scheme, or none, and sends every scaled form "WMEvaluateColorScheme" so that
// it reads the scheme again.
void SetCurrentColorScheme(std::shared_ptr<const TnvColorScheme> AScheme);

} // namespace norvik
