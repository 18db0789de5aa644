#include "SQLSystem.h"

#include "TSQLObject.h"
#include "TSQLTokenizer.h"

namespace norvik {

namespace {

// deeper sub-selects than this are not looked into for the source table
constexpr int MaxSubSelectDepth = 32;

bool HasOuterOr(const QString& ACondition) {
    const TSQLTokenizer tokens(ACondition);
    for (const QString& token : tokens.Items()) {
        if (token.compare(QLatin1String("OR"), Qt::CaseInsensitive) == 0)
            return true;
    }
    return false;
}

QString BracketedIfOr(const QString& ACondition) {
    return HasOuterOr(ACondition) ? u'(' + ACondition + u')' : ACondition;
}

bool IsNameChar(QChar c) {
    return !(c.isSpace() || c == u',' || c == u'(' || c == u')' || c == u';');
}

// the first name of a FROM clause, without quoting brackets or quotes
QString FirstTableName(const QString& AFrom) {
    qsizetype start = 0;
    while (start < AFrom.size() && (AFrom.at(start) == u'(' || AFrom.at(start).isSpace()))
        ++start;
    qsizetype end = start;
    while (end < AFrom.size() && IsNameChar(AFrom.at(end)))
        ++end;
    QString name = AFrom.mid(start, end - start);
    name.remove(u'[').remove(u']').remove(u'"').remove(u'`');
    return name;
}

QString FindSourceTableAt(const QString& ASQL, int ADepth) {
    const TSQLObject statement(ASQL);
    if (statement.SourceQueryCount() > 0)
        return ADepth < MaxSubSelectDepth ? FindSourceTableAt(statement.GetSourceQuery(0), ADepth + 1)
                                          : QString();
    return FirstTableName(statement.From());
}

} // namespace

void AddWhere(const QString& ASQL, const QString& ACondition, QString& AResult) {
    const QString condition = ACondition.trimmed();
    if (condition.isEmpty()) {
        AResult = ASQL;
        return;
    }
    TSQLObject statement(ASQL);
    const QString where = statement.Where();
    if (where.isEmpty())
        statement.SetWhere(BracketedIfOr(condition));
    else
        statement.SetWhere(BracketedIfOr(where) + QStringLiteral(" AND ") + BracketedIfOr(condition));
    AResult = statement.Text();
}

QString AddWhere(const QString& ASQL, const QString& ACondition) {
    QString result;
    AddWhere(ASQL, ACondition, result);
    return result;
}

QString FindSourceTable(const QString& ASQL) {
    return FindSourceTableAt(ASQL, 0);
}

} // namespace norvik
