#pragma once

#include <QList>
#include <QTextFormat>
#include <QTextOption>

class QTextBlockFormat;
class QTextDocument;

namespace engine {

// Word measures a paragraph's tab stops from the margin, Qt from the start of the line, which
// lies at the paragraph's indent. The paragraph's stops as Word has them are what the format
// holds; when the layout is prepared, Qt gets them moved by the indent of the first line, the
// line that a tab most often stands in, and the format remembers how far they were moved.
class TTabStops {
public:
    // how far, in layout units, the stops that Qt has were moved
    static constexpr int kOriginProperty = QTextFormat::UserProperty + 16;
    // the stops as they were given to Qt, to notice stops that someone set since
    static constexpr int kGivenProperty = QTextFormat::UserProperty + 17;

    // the stops as Word measures them, from the margin, in Qt's format units
    static QList<QTextOption::Tab> wordTabs(const QTextBlockFormat& format);
    // where a stop that Qt has stands as Word measures it
    static double wordPosition(const QTextBlockFormat& format, double qtPosition);

    static void apply(QTextDocument& text);
};

} // namespace engine
