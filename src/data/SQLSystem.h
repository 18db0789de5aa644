#pragma once

#include <QString>

namespace norvik {

// Adds ACondition to the WHERE of ASQL with AND. An empty condition leaves the statement as
// it is. A condition list joined by OR is bracketed first, so that the added condition holds
// for every row.
void AddWhere(const QString& ASQL, const QString& ACondition, QString& AResult);
QString AddWhere(const QString& ASQL, const QString& ACondition);

// The table a SELECT reads from: the first word of the FROM clause, of the first part of a
// sub-select if there is one. Empty when none is found.
QString FindSourceTable(const QString& ASQL);

} // namespace norvik
