#pragma once

#include <QString>
#include <QTextOption>
#include <functional>
#include <optional>
#include <vector>

class QXmlStreamReader;

namespace engine {

// Paragraph properties of OpenXML (w:pPr) at one level of the cascade. Lengths in layout units.
class TParagraphProperties {
public:
    enum class TLineRule { Auto, Exact, AtLeast };
    struct TLineSpacing {
        TLineRule rule = TLineRule::Auto;
        // a factor for Auto (240ths of a line), a length otherwise
        double value = 1.0;
    };
    struct TTabStop {
        double position = 0.0;
        QTextOption::TabType type = QTextOption::LeftTab;
        // removes an inherited stop at this position
        bool clear = false;
        // fills the space up to the stop; null for none
        QChar leader;
    };

    std::optional<QString> style;
    std::optional<Qt::Alignment> alignment;
    std::optional<double> leftIndent;
    std::optional<double> rightIndent;
    // negative for a hanging indent
    std::optional<double> firstLineIndent;
    std::optional<double> spaceBefore;
    std::optional<double> spaceAfter;
    std::optional<TLineSpacing> lineSpacing;
    std::optional<bool> pageBreakBefore;
    // leaves out the space towards a neighbour of the same style
    std::optional<bool> contextualSpacing;
    std::vector<TTabStop> tabs;

    void overrideWith(const TParagraphProperties& other);
    // the tab stops that remain after the clearing ones took theirs away, by position
    std::vector<TTabStop> effectiveTabs() const;

    // Reads a w:pPr element; children it doesn't know (w:rPr, w:sectPr, w:numPr) go to the
    // handler, which must read them to their end.
    static TParagraphProperties read(QXmlStreamReader& xml,
                                     const std::function<void(QXmlStreamReader&)>& otherChild);
};

} // namespace engine
