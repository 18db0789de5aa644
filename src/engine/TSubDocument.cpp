#include "TSubDocument.h"

#include "DocUnits.h"
#include "TParagraphSpacing.h"

#include <QAbstractTextDocumentLayout>
#include <QTextBlock>
#include <QTextDocument>

namespace engine {

TSubDocument::TSubDocument()
    : m_text(std::make_unique<QTextDocument>()) {
    m_text->documentLayout()->setPaintDevice(units::layoutDevice());
    m_text->setDocumentMargin(0);
    m_text->setUseDesignMetrics(true);
    QTextOption option = m_text->defaultTextOption();
    option.setTabStopDistance(units::toFormat(units::fromTwips(720)));
    m_text->setDefaultTextOption(option);
}

TSubDocument::~TSubDocument() = default;

void TSubDocument::addShape(std::shared_ptr<TDocShape> shape) {
    m_shapes.push_back(std::move(shape));
}

void TSubDocument::setStyleFontSizes(std::shared_ptr<const QHash<QString, double>> sizes) {
    m_styleFontSizes = std::move(sizes);
}

std::optional<double> TSubDocument::namedStyleFontSize(const QString& styleId) const {
    if (!m_styleFontSizes || !m_styleFontSizes->contains(styleId))
        return std::nullopt;
    return m_styleFontSizes->value(styleId);
}

int TSubDocument::replaceAll(const QString& find, const QString& replacement) {
    if (find.isEmpty())
        return 0;
    int count = 0;
    QTextCursor match = findFirst(find);
    while (!match.isNull()) {
        QTextCursor first(m_text.get());
        first.setPosition(match.selectionStart() + 1);
        const QTextCharFormat format = first.charFormat();
        match.insertText(replacement, format);
        ++count;
        match = findNext(find, match);
    }
    return count;
}

QTextCursor TSubDocument::findNext(const QString& text, const QTextCursor& from) const {
    return m_text->find(text, from);
}

QTextCursor TSubDocument::findFirst(const QString& text) const {
    return m_text->find(text, 0);
}

void TSubDocument::setWidth(double layoutWidth) {
    m_text->setTextWidth(layoutWidth);
}

double TSubDocument::width() const {
    return m_text->textWidth();
}

double TSubDocument::height() const {
    return m_text->documentLayout()->documentSize().height();
}

QString TSubDocument::plainText() const {
    QString text;
    for (QTextBlock block = m_text->begin(); block.isValid(); block = block.next()) {
        if (block != m_text->begin())
            text += TParagraphSpacing::continues(block.blockFormat()) ? QChar(QChar::LineSeparator)
                                                                      : QChar(u'\n');
        text += block.text();
    }
    return text;
}

} // namespace engine
