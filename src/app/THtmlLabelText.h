#pragma once

#include <QFont>
#include <QString>

// The tile texts are written in the HTML of the rich label they were made for, whose FONT tag
// takes a size in percent of the label's font. Qt's rich text reads a FONT size only as a step
// from 1 to 7, so the percentages become spans with a point size of their own.
class THtmlLabelText {
public:
    // the text with every <FONT size="n%"> ... </FONT> as a span of n % of the base font;
    // everything else stays as it is
    static QString ToQtRichText(const QString& AHtml, const QFont& ABase);
    // the CSS size for n % of the base font: points, or pixels for a font set in pixels
    static QString FontSize(int APercent, const QFont& ABase);
};
