#pragma once

#include "Variant.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace norvik {

class InvDBConnection;

// The write routines that the program calls: each makes a TnvInsertUpdateHelper, runs it
// and frees it. Names and values pair by position; a key value of text arrives with its
// quotes.

// updates the row AKeyField=AKeyValue and its change stamps
bool UpdateRecord(InvDBConnection& AConn, const QString& ATableName, const QString& AKeyField,
                  const QString& AKeyValue, const QStringList& AFieldNames, const QList<Variant>& AValues);
// inserts a row with a new ID and the creation stamps; yields the ID
qint64 InsertRecord(InvDBConnection& AConn, const QString& ATableName, const QStringList& AFieldNames,
                    const QList<Variant>& AValues);
// marks the row AKeyField=AKeyValue as deleted
bool DeleteRecord(InvDBConnection& AConn, const QString& ATableName, const QString& AKeyField,
                  const QString& AKeyValue);

} // namespace norvik
