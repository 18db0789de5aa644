#pragma once

#include <QString>
#include <QStringList>

namespace norvik {

// Cuts a statement into words at blanks, tabs and line breaks. Text in '...' or "..." and
// everything between balanced brackets stays in one word; inside brackets quotes do not
// count, and a " inside '...' is plain text.
class TSQLTokenizer {
public:
    explicit TSQLTokenizer(const QString& ASQL);

    const QStringList& Items() const { return FItems; }
    int ItemCount() const { return int(FItems.size()); }

private:
    QStringList FItems;
};

} // namespace norvik
