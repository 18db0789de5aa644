#pragma once

#include <QString>

// Where the caption label of a question stands on the catalogue page, in design pixels.
struct TQuestionHeading {
    // headings are set larger than the answers beneath them
    static constexpr int FontPercent = 120;

    QString Text;
    int Left = 0;
    int Top = 0;
};
