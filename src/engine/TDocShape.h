#pragma once

#include <QBrush>
#include <QImage>
#include <QMarginsF>
#include <QPen>
#include <QSizeF>
#include <QTextCursor>
#include <memory>

namespace engine {

class TSubDocument;

// A floating object anchored in a paragraph: a text box, which is a sub-document of its own,
// or a picture. All lengths in layout units.
class TDocShape {
public:
    // what an offset is measured from
    enum class TRelative { Page, Margin, Paragraph, LeftMargin, RightMargin, TopMargin, BottomMargin };
    // an alignment replaces the offset: left or top, centre, right or bottom of the reference
    enum class TAlign { Offset, Start, Center, End };
    struct TAxis {
        TRelative relative = TRelative::Margin;
        TAlign align = TAlign::Offset;
        double offset = 0.0;
    };

    TAxis horizontal;
    TAxis vertical;
    QSizeF size;
    bool behindText = false;
    std::shared_ptr<TSubDocument> textBox;
    QMarginsF textInsets;
    QImage picture;
    QPen border = QPen(Qt::NoPen);
    QBrush fill = QBrush(Qt::NoBrush);
    // follows its paragraph while text is inserted or removed before it
    QTextCursor anchor;

    bool hasTextBox() const { return textBox != nullptr; }
};

} // namespace engine
