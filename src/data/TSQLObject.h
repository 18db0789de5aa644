#pragma once

#include <QString>
#include <QStringList>

namespace norvik {

// A SELECT (or INSERT INTO ... SELECT) split into its clauses, so that a condition can be
// added to WHERE or the ORDER BY replaced, and the statement written back with the clauses
// in their fixed order: INSERT INTO, SELECT, FROM, WHERE, GROUP BY, HAVING, ORDER BY.
//
// A sub-select in FROM is kept as the list of source queries, one per UNION part. A UNION at
// the outermost level ends the reading of clauses: the rest stays in the clause in which it
// stands, so that nothing of the statement is lost. Words before the first clause keyword
// are kept in front.
class TSQLObject {
public:
    explicit TSQLObject(const QString& ASQL);

    QString InsertInto() const { return FInsertInto; }
    void SetInsertInto(const QString& AValue) { FInsertInto = AValue; }
    QString Select() const { return FSelect; }
    void SetSelect(const QString& AValue) { FSelect = AValue; }
    // the clause with its sub-select written out
    QString From() const;
    void SetFrom(const QString& AValue);
    QString Where() const { return FWhere; }
    void SetWhere(const QString& AValue) { FWhere = AValue; }
    QString OrderBy() const { return FOrderBy; }
    void SetOrderBy(const QString& AValue) { FOrderBy = AValue; }
    QString GroupBy() const { return FGroupBy; }
    void SetGroupBy(const QString& AValue) { FGroupBy = AValue; }
    QString Having() const { return FHaving; }
    void SetHaving(const QString& AValue) { FHaving = AValue; }

    // each clause on a line of its own, Indent blanks in front
    bool FormatOutput() const { return FFormatOutput; }
    void SetFormatOutput(bool AValue) { FFormatOutput = AValue; }
    int Indent() const { return FIndent; }
    void SetIndent(int AValue) { FIndent = AValue; }

    // the parts of the sub-select in FROM, split at UNION
    QStringList SourceQueries() const;
    int SourceQueryCount() const { return int(FList.size()); }
    QString GetSourceQuery(int Index) const;
    void ClearOrderBy() { FOrderBy.clear(); }
    // drops the sub-select from FROM
    void ClearSourceQueries();

    // the statement written back
    QString Text() const;

private:
    QString FLeading;
    QString FInsertInto;
    QString FSelect;
    // the words of the clause; the sub-select stood in front of the word FSubSelectWord
    QStringList FFrom;
    qsizetype FSubSelectWord = -1;
    QString FWhere;
    QString FOrderBy;
    QString FGroupBy;
    QString FHaving;
    bool FFormatOutput = false;
    QStringList FList;
    int FIndent = 0;

    void Parse(const QString& ASQL);
    QString* ClauseOfKeyword(const QString& AToken, QString& AFromText);
    void SplitSourceQueries(const QString& AFrom);
};

} // namespace norvik
