#pragma once

#include <QHash>
#include <QList>
#include <QString>

namespace norvik {

// The state of one bracket level while a statement is rewritten.
struct TnvStats {
    bool IsInString = false;
    // the limit of a "TOP n" of this level, written as " LIMIT n" when the level closes
    QString TopStatement;
};

struct TnvReplaceDefs {
    QString OldFunc;
    QString NewFunc;
};

// Rewrites a statement of the program's own SQL dialect for SQLite in one pass over the
// text: "SELECT TOP n ..." becomes "SELECT ... LIMIT n" on each bracket level, and the
// function names of the replacement list are swapped ("ISNULL" to "IFNULL", "SUM" to
// "TOTAL", so that a sum over no rows is 0 rather than NULL). Only ' quotes a string.
//
// Unbalanced brackets do not raise: the result is an error text in place of the statement,
// which the database then rejects.
class TnvSQLiteParser {
public:
    TnvSQLiteParser();

    // the word AName (any case) is replaced: AOldFunc's length is taken off, ANewFunc put in
    void AddReplace(const QString& AName, const QString& AOldFunc, const QString& ANewFunc);
    void RemoveReplace(const QString& AName);

    // false when the brackets do not balance and AResult holds the error text
    bool ParseSQL(const QString& ASQL, QString& AResult);
    QString ParseSQL(const QString& ASQL);

    static QString UnbalancedClosingText();
    static QString UnbalancedOpeningText(int ALevel);

private:
    TnvStats FStates;
    QList<TnvStats> FStatsStack;
    QString FToken;
    int FLevel = 0;
    // keys in upper case
    QHash<QString, TnvReplaceDefs> FFunctionReplace;

    void Reset();
    void OpenBracket();
    void WritePendingLimit(QString& AResult) const;
    // handles the word that ends before position APos; gives how many characters, from
    // APos on, are left out of the result
    qsizetype FinishWord(const QString& ASQL, qsizetype APos, QString& AResult);
};

} // namespace norvik
