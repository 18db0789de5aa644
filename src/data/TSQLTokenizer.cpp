#include "TSQLTokenizer.h"

namespace norvik {

namespace {

bool IsSeparator(QChar c) {
    return c == u' ' || c == u'\t' || c == u'\n' || c == u'\r';
}

} // namespace

TSQLTokenizer::TSQLTokenizer(const QString& ASQL) {
    QString token;
    QChar quote; // the open quote character, null outside a string
    int depth = 0;
    for (const QChar c : ASQL) {
        if (depth > 0) {
            // inside brackets only the brackets count
            if (c == u'(')
                ++depth;
            else if (c == u')')
                --depth;
        } else if (!quote.isNull()) {
            if (c == quote)
                quote = QChar();
        } else if (c == u'\'' || c == u'"') {
            quote = c;
        } else if (c == u'(') {
            ++depth;
        } else if (IsSeparator(c)) {
            if (!token.isEmpty())
                FItems.append(token);
            token.clear();
            continue;
        }
        token.append(c);
    }
    if (!token.isEmpty())
        FItems.append(token);
}

} // namespace norvik
