#include "StructureTestDatabase.h"

#include "TmodData.h"

namespace structuretest {

StructureTestDatabase::StructureTestDatabase(norvik::TServerQueryMode AMode)
    : FConn(AMode == norvik::qsmSQLite ? std::make_unique<norvik::TnvDBConnection>()
                                       : std::make_unique<DialectConnection>(AMode)) {
    FConn->SetAliasName(QStringLiteral("_dbData"));
    FConn->InitDirectSQLiteDatabase(FilePath());
    FConn->SetConnected(true);
}

void StructureTestDatabase::Exec(const QString& ASQL) {
    FConn->PSExecuteStatement(ASQL, nullptr, nullptr, false, true);
}

qint64 StructureTestDatabase::Count(const QString& ASQL) {
    return FConn->PSQueryValue(ASQL, norvik::Variant(qint64(-1)), nullptr, true).toInt64();
}

QStringList StructureTestDatabase::Column(const QString& ASQL) {
    QStringList values;
    FConn->PSForEachRecord(ASQL,
                           [&values](norvik::TnvDataSet& row) { values.append(row.Fields(0).AsString()); });
    return values;
}

QStringList StructureTestDatabase::Check(const QString& AStructure,
                                         const std::function<void(norvik::TnvDBUpdate&)>& AConfigure,
                                         bool AHandled) {
    QStringList statements;
    norvik::TnvDBUpdate update;
    update.Connection = FConn.get();
    update.Structure = AStructure.split(QStringLiteral("\r\n"));
    update.OnRunSQL = [&statements, AHandled](norvik::TnvDBUpdate&, const QString& statement, bool& handled) {
        statements.append(statement);
        handled = AHandled;
    };
    if (AConfigure)
        AConfigure(update);
    update.PerformCheck();
    return statements;
}

QString StructureTestDatabase::StructureText() {
    norvik::TnvDBUpdate update;
    update.Connection = FConn.get();
    QStringList tables;
    update.GetTableNames(tables);
    QString text;
    update.GetDBStructure(tables, text);
    return text;
}

QString BuiltInStructure() {
    return TmodData::LoadResourceText(QStringLiteral("DBSTRUC"));
}

} // namespace structuretest
