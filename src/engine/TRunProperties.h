#pragma once

#include <QColor>
#include <QString>
#include <optional>

class QXmlStreamReader;

namespace engine {

// Character properties of OpenXML (w:rPr) at one level of the cascade; what a level doesn't
// set is left to the level below.
class TRunProperties {
public:
    enum class TVerticalAlign { Baseline, Superscript, Subscript };

    std::optional<QString> family;
    // "major" or "minor": the font named by the document's theme
    std::optional<QString> themeFont;
    std::optional<double> pointSize;
    std::optional<bool> bold;
    std::optional<bool> italic;
    std::optional<bool> underline;
    std::optional<bool> strikeOut;
    std::optional<QColor> color;
    std::optional<TVerticalAlign> verticalAlign;
    std::optional<QString> characterStyle;

    // takes over everything that the other level sets
    void overrideWith(const TRunProperties& other);

    // reads a w:rPr element; the reader stands on its start and ends on its end
    static TRunProperties read(QXmlStreamReader& xml);
};

} // namespace engine
