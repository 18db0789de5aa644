#include "TParagraphSpacing.h"

#include "DocUnits.h"
#include "TDerivedFormats.h"

#include <QAbstractTextDocumentLayout>
#include <QFontMetricsF>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextLayout>
#include <QTextTable>
#include <utility>
#include <vector>

namespace engine {

namespace {

constexpr double kSame = 1e-6;

// the flow a paragraph stands in: a frame, and in a table the cell
struct TPlace {
    const QTextFrame* frame = nullptr;
    int row = -1;
    int column = -1;
    bool operator==(const TPlace& other) const {
        return frame == other.frame && row == other.row && column == other.column;
    }
};

TPlace placeOf(const QTextBlock& block) {
    QTextCursor cursor(block);
    QTextFrame* frame = cursor.currentFrame();
    if (const auto* table = qobject_cast<QTextTable*>(frame)) {
        const QTextTableCell cell = table->cellAt(block.position());
        return {frame, cell.row(), cell.column()};
    }
    return {frame};
}

// the paragraph before or behind in the same flow, with nothing between them; invalid if none
QTextBlock sibling(const QTextBlock& block, const QTextBlock& neighbour) {
    return neighbour.isValid() && placeOf(neighbour) == placeOf(block) ? neighbour : QTextBlock();
}

double ownBefore(const QTextBlockFormat& format, const QTextBlockFormat& previous) {
    const bool suppressed = TParagraphSpacing::isContextual(format) &&
                            TParagraphSpacing::style(format) == TParagraphSpacing::style(previous);
    return suppressed ? 0.0 : TParagraphSpacing::spaceBefore(format);
}

double ownAfter(const QTextBlockFormat& format, const QTextBlockFormat& next) {
    const bool suppressed = TParagraphSpacing::isContextual(format) &&
                            TParagraphSpacing::style(format) == TParagraphSpacing::style(next);
    return suppressed ? 0.0 : TParagraphSpacing::spaceAfter(format);
}

bool holdsPicture(const QTextBlock& block) {
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        if (it.fragment().charFormat().isImageFormat())
            return true;
    }
    return false;
}

// Qt's line is ascent, descent and the font's line gap; Word's is ascent and descent, times the
// line factor. A picture's line keeps the picture's height, and only the font's line is
// stretched by the factor. The tallest line of the paragraph gives Qt's percentage.
double qtLinePercent(const QTextBlock& block, double factor) {
    const QTextLayout* layout = block.layout();
    double tallest = 0.0;
    double percent = factor * 100.0;
    for (int i = 0; i < layout->lineCount(); ++i) {
        const QTextLine line = layout->lineAt(i);
        const double qtHeight = line.ascent() + line.descent() + qMax(0.0, line.leading());
        if (qtHeight <= tallest || qtHeight <= 0)
            continue;
        tallest = qtHeight;
        const double natural = line.ascent() + line.descent();
        double word = factor * natural;
        if (holdsPicture(block)) {
            const QFontMetricsF font(block.charFormat().font(), units::layoutDevice());
            word = natural + (factor - 1.0) * (font.ascent() + font.descent());
        }
        percent = word / qtHeight * 100.0;
    }
    return percent;
}

void setFormats(QTextDocument& text, const std::vector<std::pair<QTextBlock, QTextBlockFormat>>& changes) {
    if (changes.empty())
        return;
    TDerivedFormats::change(text, [&] {
        for (const auto& [block, format] : changes)
            QTextCursor(block).setBlockFormat(format);
    });
}

// a format seen for the first time keeps Qt's values as its own
void adopt(QTextBlockFormat& format) {
    if (!format.hasProperty(TParagraphSpacing::kSpaceBeforeProperty))
        TParagraphSpacing::setSpaceBefore(format, units::fromFormat(format.topMargin()));
    if (!format.hasProperty(TParagraphSpacing::kSpaceAfterProperty))
        TParagraphSpacing::setSpaceAfter(format, units::fromFormat(format.bottomMargin()));
    const bool proportional = format.lineHeightType() == QTextBlockFormat::ProportionalHeight ||
                              format.lineHeightType() == QTextBlockFormat::SingleHeight;
    if (proportional && !format.hasProperty(TParagraphSpacing::kLineFactorProperty)) {
        const double percent =
            format.lineHeightType() == QTextBlockFormat::SingleHeight ? 100.0 : format.lineHeight();
        TParagraphSpacing::setLineFactor(format, percent / 100.0);
    }
}

void adoptAll(QTextDocument& text) {
    std::vector<std::pair<QTextBlock, QTextBlockFormat>> changes;
    for (QTextBlock block = text.begin(); block.isValid(); block = block.next()) {
        QTextBlockFormat format = block.blockFormat();
        adopt(format);
        if (format != block.blockFormat())
            changes.emplace_back(block, format);
    }
    setFormats(text, changes);
}

QTextBlockFormat derived(const QTextBlock& block) {
    QTextBlockFormat format = block.blockFormat();
    const QTextBlock previous = sibling(block, block.previous());
    const QTextBlock next = sibling(block, block.next());
    // the larger of the space after the paragraph before and the space before this one
    const double top = previous.isValid() ? qMax(TParagraphSpacing::effectiveAfter(previous),
                                                 TParagraphSpacing::effectiveBefore(block))
                                          : TParagraphSpacing::effectiveBefore(block);
    const double bottom = next.isValid() ? 0.0 : TParagraphSpacing::spaceAfter(format);
    format.setTopMargin(units::toFormat(top));
    format.setBottomMargin(units::toFormat(bottom));
    if (format.hasProperty(TParagraphSpacing::kLineFactorProperty))
        format.setLineHeight(qtLinePercent(block, TParagraphSpacing::lineFactor(format)),
                             QTextBlockFormat::ProportionalHeight);
    return format;
}

bool differs(const QTextBlockFormat& a, const QTextBlockFormat& b) {
    return qAbs(a.topMargin() - b.topMargin()) > kSame || qAbs(a.bottomMargin() - b.bottomMargin()) > kSame ||
           a.lineHeightType() != b.lineHeightType() || qAbs(a.lineHeight() - b.lineHeight()) > kSame;
}

// Qt leaves out the top margin of a frame's first paragraph; the frame keeps it instead
void keepFirstSpace(QTextDocument& text) {
    QTextFrame* root = text.rootFrame();
    const QTextFrame::iterator first = root->begin();
    const QTextBlock block = first.atEnd() ? QTextBlock() : first.currentBlock();
    const double space =
        block.isValid() ? units::toFormat(TParagraphSpacing::spaceBefore(block.blockFormat())) : 0.0;
    QTextFrameFormat format = root->frameFormat();
    if (qAbs(format.topMargin() - space) > kSame) {
        format.setTopMargin(space);
        TDerivedFormats::change(text, [&] { root->setFrameFormat(format); });
    }
}

} // namespace

void TParagraphSpacing::setSpaceBefore(QTextBlockFormat& format, double layout) {
    format.setProperty(kSpaceBeforeProperty, layout);
}

void TParagraphSpacing::setSpaceAfter(QTextBlockFormat& format, double layout) {
    format.setProperty(kSpaceAfterProperty, layout);
}

void TParagraphSpacing::setLineFactor(QTextBlockFormat& format, double factor) {
    format.setProperty(kLineFactorProperty, factor);
}

void TParagraphSpacing::setContextual(QTextBlockFormat& format, bool contextual) {
    format.setProperty(kContextualProperty, contextual);
}

void TParagraphSpacing::setContinues(QTextBlockFormat& format) {
    format.setProperty(kContinuesProperty, true);
    setSpaceBefore(format, 0.0);
}

bool TParagraphSpacing::continues(const QTextBlockFormat& format) {
    return format.boolProperty(kContinuesProperty);
}

void TParagraphSpacing::setStyle(QTextBlockFormat& format, const QString& styleId) {
    format.setProperty(kStyleProperty, styleId);
}

double TParagraphSpacing::spaceBefore(const QTextBlockFormat& format) {
    return format.hasProperty(kSpaceBeforeProperty) ? format.doubleProperty(kSpaceBeforeProperty)
                                                    : units::fromFormat(format.topMargin());
}

double TParagraphSpacing::spaceAfter(const QTextBlockFormat& format) {
    return format.hasProperty(kSpaceAfterProperty) ? format.doubleProperty(kSpaceAfterProperty)
                                                   : units::fromFormat(format.bottomMargin());
}

double TParagraphSpacing::lineFactor(const QTextBlockFormat& format) {
    if (format.hasProperty(kLineFactorProperty))
        return format.doubleProperty(kLineFactorProperty);
    return format.lineHeightType() == QTextBlockFormat::ProportionalHeight ? format.lineHeight() / 100.0
                                                                           : 1.0;
}

bool TParagraphSpacing::isContextual(const QTextBlockFormat& format) {
    return format.boolProperty(kContextualProperty);
}

QString TParagraphSpacing::style(const QTextBlockFormat& format) {
    return format.stringProperty(kStyleProperty);
}

double TParagraphSpacing::effectiveBefore(const QTextBlock& block) {
    if (continues(block.blockFormat()))
        return 0.0;
    const QTextBlock previous = sibling(block, block.previous());
    return previous.isValid() ? ownBefore(block.blockFormat(), previous.blockFormat())
                              : spaceBefore(block.blockFormat());
}

double TParagraphSpacing::effectiveAfter(const QTextBlock& block) {
    const QTextBlock next = sibling(block, block.next());
    if (next.isValid() && continues(next.blockFormat()))
        return 0.0;
    return next.isValid() ? ownAfter(block.blockFormat(), next.blockFormat())
                          : spaceAfter(block.blockFormat());
}

void TParagraphSpacing::apply(QTextDocument& text) {
    adoptAll(text);
    // the lines must be laid out to know their fonts' heights
    text.documentLayout()->documentSize();
    // all are derived before any changes, as a change drops the lines behind it
    std::vector<std::pair<QTextBlock, QTextBlockFormat>> changes;
    for (QTextBlock block = text.begin(); block.isValid(); block = block.next()) {
        const QTextBlockFormat format = derived(block);
        if (differs(format, block.blockFormat()))
            changes.emplace_back(block, format);
    }
    setFormats(text, changes);
    keepFirstSpace(text);
}

} // namespace engine
