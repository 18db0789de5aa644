#pragma once

#include <QString>
#include <QTextFormat>

class QTextBlock;
class QTextBlockFormat;
class QTextDocument;

namespace engine {

// Word's vertical spacing of paragraphs, kept beside Qt's block format. Between two paragraphs
// stands the larger of the space after the one and the space before the other (so LibreOffice
// lays out a Word document), unless a paragraph leaves out its space towards a neighbour of its
// own style; the space before the first paragraph of a flow stays, where Qt drops it; and a
// single line is as high as the font's ascent and descent, without the line gap that Qt adds.
// The paragraph's own values stay in properties of the format; Qt's margins and line height are
// derived from them whenever the layout is prepared.
class TParagraphSpacing {
public:
    // space before and after in layout units, Word's "auto" line factor, the contextual flag
    // and the paragraph style
    static constexpr int kSpaceBeforeProperty = QTextFormat::UserProperty + 10;
    static constexpr int kSpaceAfterProperty = QTextFormat::UserProperty + 11;
    static constexpr int kLineFactorProperty = QTextFormat::UserProperty + 12;
    static constexpr int kContextualProperty = QTextFormat::UserProperty + 13;
    static constexpr int kStyleProperty = QTextFormat::UserProperty + 14;
    // A paragraph with right, centre or decimal stops keeps each line behind a line break in a
    // block of its own, which continues the paragraph: Qt measures such a stop's text up to the
    // next tab or the end of the block, where Word stops at the line break.
    static constexpr int kContinuesProperty = QTextFormat::UserProperty + 18;

    static void setSpaceBefore(QTextBlockFormat& format, double layout);
    static void setSpaceAfter(QTextBlockFormat& format, double layout);
    // a factor of Word's single line; only for paragraphs of "auto" line spacing
    static void setLineFactor(QTextBlockFormat& format, double factor);
    static void setContextual(QTextBlockFormat& format, bool contextual);
    static void setStyle(QTextBlockFormat& format, const QString& styleId);
    static void setContinues(QTextBlockFormat& format);
    static bool continues(const QTextBlockFormat& format);

    // the paragraph's own values; a format without them gives Qt's margins and line height
    static double spaceBefore(const QTextBlockFormat& format);
    static double spaceAfter(const QTextBlockFormat& format);
    static double lineFactor(const QTextBlockFormat& format);
    static bool isContextual(const QTextBlockFormat& format);
    static QString style(const QTextBlockFormat& format);

    // the space before and after a paragraph once its neighbours' styles are considered
    static double effectiveBefore(const QTextBlock& block);
    static double effectiveAfter(const QTextBlock& block);

    // sets Qt's margins and line heights of every paragraph of the text from Word's values
    static void apply(QTextDocument& text);
};

} // namespace engine
