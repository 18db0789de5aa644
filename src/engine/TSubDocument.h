#pragma once

#include "TDocShape.h"

#include <QHash>
#include <QString>
#include <QTextCursor>
#include <QTextFormat>
#include <memory>
#include <optional>
#include <vector>

class QTextDocument;

namespace engine {

// One flow of text: the body, a header, a footer or a text box. The text lives in a
// QTextDocument laid out on the engine's layout device; shapes anchored in it are kept beside.
class TSubDocument {
public:
    // the character style of a run, kept in its format so that its size stays known
    static constexpr int kCharacterStyleProperty = QTextFormat::UserProperty + 1;

    TSubDocument();
    ~TSubDocument();
    TSubDocument(const TSubDocument&) = delete;
    TSubDocument& operator=(const TSubDocument&) = delete;

    QTextDocument& text() { return *m_text; }
    const QTextDocument& text() const { return *m_text; }

    const std::vector<std::shared_ptr<TDocShape>>& shapes() const { return m_shapes; }
    void addShape(std::shared_ptr<TDocShape> shape);

    // font sizes of the character styles, in points, by style id
    void setStyleFontSizes(std::shared_ptr<const QHash<QString, double>> sizes);
    std::optional<double> namedStyleFontSize(const QString& styleId) const;

    // Replaces every occurrence, ignoring letter case; each replacement keeps the character
    // format of the first character it replaces. Gives the number of replacements.
    int replaceAll(const QString& find, const QString& replacement);
    // the next match behind the cursor's position, ignoring letter case; null if none
    QTextCursor findNext(const QString& text, const QTextCursor& from) const;
    QTextCursor findFirst(const QString& text) const;

    void setWidth(double layoutWidth);
    double width() const;
    double height() const;
    // the paragraphs' texts, one line each; line breaks inside a paragraph stay U+2028
    QString plainText() const;

private:
    std::unique_ptr<QTextDocument> m_text;
    std::vector<std::shared_ptr<TDocShape>> m_shapes;
    std::shared_ptr<const QHash<QString, double>> m_styleFontSizes;
};

} // namespace engine
