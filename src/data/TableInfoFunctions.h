#pragma once

#include "TFieldType.h"
#include "TnvTableInfoList.h"

#include <QString>

namespace norvik {

class InvDBConnection;
class TnvTableInfo;

// Table metadata through a connection and its dictionary of TnvTableInfo objects.

// the cached description or nullptr, without touching the database
TnvTableInfo* LookupTableInfo(InvDBConnection& AConn, const QString& ATableName);
// the cached description; a missing one is read and stored, ForceReload reads it anew
TnvTableInfo& GetTableInfo(InvDBConnection& AConn, const QString& ATableName, bool ForceReload = false);
// true if the table is cached, else as the database says
bool TableExists(InvDBConnection& AConn, const QString& ATableName);
QString GetTablePrefix(InvDBConnection& AConn, const QString& ATableName);
// raises EDBUtilsException for a field that the table lacks
TFieldType GetFieldType(InvDBConnection& AConn, const QString& ATableName, const QString& AFieldName);
bool FieldExists(InvDBConnection& AConn, const QString& ATableName, const QString& AFieldName);

// Fills AList anew with every table of a SQLite database, read from sqlite_master and
// "PRAGMA table_info".
void ReadAllSQLiteTableInfos(InvDBConnection& AConn, TnvTableInfoList& AList);

} // namespace norvik
