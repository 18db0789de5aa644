#include "TSQLObject.h"

#include "TSQLTokenizer.h"

#include <array>

namespace norvik {

namespace {

struct TwoWordKeyword {
    QLatin1String words;
    QLatin1String placeholder;
};

// each two-word keyword becomes one word while the statement is cut into words
const std::array<TwoWordKeyword, 3> TwoWordKeywords = {{
    {QLatin1String("INSERT INTO"), QLatin1String("$INSERTINTO$")},
    {QLatin1String("ORDER BY"), QLatin1String("$ORDERBY$")},
    {QLatin1String("GROUP BY"), QLatin1String("$GROUPBY$")},
}};

const QLatin1String UnionSeparator("\r\nUNION\r\n");

// Replaces each of the words by its stand-in, or back, leaving '...' literals alone so that
// the letter case of a text in the statement never changes.
QString ReplaceOutsideStrings(const QString& AText, bool AToPlaceholder) {
    QString result;
    result.reserve(AText.size());
    bool inString = false;
    qsizetype pos = 0;
    while (pos < AText.size()) {
        const QChar c = AText.at(pos);
        if (c == u'\'')
            inString = !inString;
        if (!inString) {
            const TwoWordKeyword* hit = nullptr;
            const QStringView rest = QStringView(AText).sliced(pos);
            for (const TwoWordKeyword& keyword : TwoWordKeywords) {
                const QLatin1String from = AToPlaceholder ? keyword.words : keyword.placeholder;
                if (c.toUpper() == QLatin1Char(from.front()) && rest.startsWith(from, Qt::CaseInsensitive)) {
                    hit = &keyword;
                    break;
                }
            }
            if (hit) {
                const QLatin1String from = AToPlaceholder ? hit->words : hit->placeholder;
                result.append(AToPlaceholder ? hit->placeholder : hit->words);
                pos += from.size();
                continue;
            }
        }
        result.append(c);
        ++pos;
    }
    return result;
}

QString RestoreKeywords(const QString& AText) {
    return ReplaceOutsideStrings(AText, false);
}

bool IsWord(const QString& AToken, QLatin1String AWord) {
    return AToken.compare(AWord, Qt::CaseInsensitive) == 0;
}

// the position of the bracket that closes the one at 0, counting brackets only
qsizetype ClosingBracket(const QString& AToken) {
    int depth = 0;
    for (qsizetype pos = 0; pos < AToken.size(); ++pos) {
        if (AToken.at(pos) == u'(')
            ++depth;
        else if (AToken.at(pos) == u')' && --depth == 0)
            return pos;
    }
    return -1;
}

bool IsBlank(QChar c) {
    return c == u' ' || c == u'\t' || c == u'\n' || c == u'\r';
}

// whether the first word is SELECT; only the beginning is read, however long the text
bool IsSelect(QStringView AText) {
    const QLatin1String select("SELECT");
    qsizetype start = 0;
    while (start < AText.size() && IsBlank(AText.at(start)))
        ++start;
    const qsizetype end = start + select.size();
    return AText.mid(start).startsWith(select, Qt::CaseInsensitive) &&
           (end == AText.size() || IsBlank(AText.at(end)));
}

QStringList SplitAtUnion(const QString& AText) {
    QStringList parts;
    QStringList words;
    const TSQLTokenizer tokens(AText);
    for (const QString& token : tokens.Items()) {
        if (IsWord(token, QLatin1String("UNION"))) {
            parts.append(words.join(u' '));
            words.clear();
        } else {
            words.append(token);
        }
    }
    parts.append(words.join(u' '));
    return parts;
}

} // namespace

TSQLObject::TSQLObject(const QString& ASQL) {
    Parse(ASQL);
}

QString* TSQLObject::ClauseOfKeyword(const QString& AToken, QString& AFromText) {
    // the order of the table is that of the clause indexes
    const std::array<std::pair<QLatin1String, QString*>, 7> keywords = {{
        {QLatin1String("SELECT"), &FSelect},
        {QLatin1String("FROM"), &AFromText},
        {QLatin1String("WHERE"), &FWhere},
        {QLatin1String("$ORDERBY$"), &FOrderBy},
        {QLatin1String("$GROUPBY$"), &FGroupBy},
        {QLatin1String("HAVING"), &FHaving},
        {QLatin1String("$INSERTINTO$"), &FInsertInto},
    }};
    for (const auto& [keyword, clause] : keywords) {
        if (IsWord(AToken, keyword))
            return clause;
    }
    return nullptr;
}

void TSQLObject::Parse(const QString& ASQL) {
    const TSQLTokenizer tokens(ReplaceOutsideStrings(ASQL, true));
    QStringList clauseWords;
    QString fromText;
    QString* clause = &FLeading;
    QList<QString*> seen;
    bool afterUnion = false;
    const auto closeClause = [&]() { *clause = RestoreKeywords(clauseWords.join(u' ').trimmed()); };
    for (const QString& token : tokens.Items()) {
        afterUnion = afterUnion || IsWord(token, QLatin1String("UNION"));
        QString* next = afterUnion ? nullptr : ClauseOfKeyword(token, fromText);
        // a keyword whose clause was read already is a plain word, so that nothing is lost
        if (next && !seen.contains(next)) {
            closeClause();
            clauseWords.clear();
            clause = next;
            seen.append(next);
        } else {
            clauseWords.append(token);
        }
    }
    closeClause();
    SplitSourceQueries(fromText);
}

void TSQLObject::SplitSourceQueries(const QString& AFrom) {
    FList.clear();
    FSubSelectWord = -1;
    FFrom = TSQLTokenizer(AFrom).Items();
    for (qsizetype i = 0; i < FFrom.size(); ++i) {
        const QString& word = FFrom.at(i);
        const qsizetype close = word.startsWith(u'(') ? ClosingBracket(word) : -1;
        if (close > 0 && IsSelect(QStringView(word).mid(1, close - 1))) {
            FList = SplitAtUnion(word.mid(1, close - 1));
            FFrom[i] = word.mid(close + 1);
            FSubSelectWord = i;
            return;
        }
    }
}

QString TSQLObject::From() const {
    QStringList words = FFrom;
    if (FSubSelectWord >= 0)
        words[FSubSelectWord].prepend(u'(' + FList.join(UnionSeparator) + u')');
    words.removeAll(QString());
    return words.join(u' ');
}

void TSQLObject::SetFrom(const QString& AValue) {
    SplitSourceQueries(AValue.trimmed());
}

QStringList TSQLObject::SourceQueries() const {
    return FList;
}

QString TSQLObject::GetSourceQuery(int Index) const {
    return FList.value(Index);
}

void TSQLObject::ClearSourceQueries() {
    FList.clear();
    FSubSelectWord = -1;
}

QString TSQLObject::Text() const {
    const std::array<std::pair<QLatin1String, QString>, 7> clauses = {{
        {QLatin1String("INSERT INTO"), FInsertInto},
        {QLatin1String("SELECT"), FSelect},
        {QLatin1String("FROM"), From()},
        {QLatin1String("WHERE"), FWhere},
        {QLatin1String("GROUP BY"), FGroupBy},
        {QLatin1String("HAVING"), FHaving},
        {QLatin1String("ORDER BY"), FOrderBy},
    }};
    QStringList parts;
    if (!FLeading.isEmpty())
        parts.append(FLeading);
    for (const auto& [keyword, text] : clauses) {
        if (!text.isEmpty())
            parts.append(keyword + u' ' + text);
    }
    if (!FFormatOutput)
        return parts.join(u' ');
    const QString indent(qMax(FIndent, 0), u' ');
    return indent + parts.join(QStringLiteral("\r\n") + indent);
}

} // namespace norvik
