#include "TableInfoFunctions.h"

#include "DBExceptions.h"
#include "FieldTypeKinds.h"
#include "InvDBConnection.h"
#include "TnvTableInfo.h"

namespace norvik {

namespace {

constexpr int PrefixLength = 3;

// "((0))" and " ('N') " both become the bare default
QString strippedDefault(const QString& AText) {
    QString text = AText.trimmed();
    while (text.startsWith(QLatin1Char('(')))
        text.remove(0, 1);
    while (text.endsWith(QLatin1Char(')')))
        text.chop(1);
    return text.trimmed();
}

int declaredSize(const QString& ADeclaration) {
    bool ok = false;
    const int size = FieldTypeKinds::SizeFromSQLiteDeclaration(ADeclaration, &ok);
    if (!ok)
        throw Exception(QStringLiteral("Was treibst für an schaß?"));
    return size;
}

void readSQLiteFields(InvDBConnection& AConn, TnvTableInfo& AInfo) {
    const auto query = AConn.PSOpenQuery(QStringLiteral("PRAGMA table_info('%1')").arg(AInfo.TableName()),
                                         nullptr, false, true);
    bool first = true;
    for (; !query->Eof(); query->Next()) {
        const QString name = query->FieldByName(QStringLiteral("name")).AsString();
        if (first)
            AInfo.SetPrefix(name.left(PrefixLength));
        first = false;
        const QString declaration = query->FieldByName(QStringLiteral("type")).AsString();
        AInfo.AddField(name, FieldTypeKinds::FromSQLiteDeclaration(declaration), declaredSize(declaration),
                       strippedDefault(query->FieldByName(QStringLiteral("dflt_value")).AsString()), false);
    }
}

} // namespace

TnvTableInfo* LookupTableInfo(InvDBConnection& AConn, const QString& ATableName) {
    auto& list = AConn.PSGetTableInfoList();
    const auto found = list.find(ATableName);
    return found == list.end() ? nullptr : found->second.get();
}

TnvTableInfo& GetTableInfo(InvDBConnection& AConn, const QString& ATableName, bool ForceReload) {
    auto& list = AConn.PSGetTableInfoList();
    if (ForceReload)
        list.erase(ATableName);
    if (TnvTableInfo* cached = LookupTableInfo(AConn, ATableName))
        return *cached;
    auto info = std::make_unique<TnvTableInfo>(AConn, ATableName);
    return *list.emplace(ATableName, std::move(info)).first->second;
}

bool TableExists(InvDBConnection& AConn, const QString& ATableName) {
    return LookupTableInfo(AConn, ATableName) != nullptr || AConn.PSTableExists(ATableName);
}

QString GetTablePrefix(InvDBConnection& AConn, const QString& ATableName) {
    return GetTableInfo(AConn, ATableName).Prefix();
}

TFieldType GetFieldType(InvDBConnection& AConn, const QString& ATableName, const QString& AFieldName) {
    return GetTableInfo(AConn, ATableName).FieldByName(AFieldName).DataType();
}

bool FieldExists(InvDBConnection& AConn, const QString& ATableName, const QString& AFieldName) {
    return GetTableInfo(AConn, ATableName).FindField(AFieldName) != nullptr;
}

void ReadAllSQLiteTableInfos(InvDBConnection& AConn, TnvTableInfoList& AList) {
    AList.clear();
    const auto tables = AConn.PSOpenQuery(
        QStringLiteral(
            "SELECT name as TableName\r\nFROM sqlite_master\r\nWHERE type='table'\r\nORDER BY name"),
        nullptr, false, true);
    for (; !tables->Eof(); tables->Next()) {
        const QString tableName = tables->FieldByName(QStringLiteral("TableName")).AsString();
        auto info = std::make_unique<TnvTableInfo>(tableName);
        readSQLiteFields(AConn, *info);
        AList[tableName] = std::move(info);
    }
}

} // namespace norvik
