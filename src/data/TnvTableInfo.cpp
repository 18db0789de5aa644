#include "TnvTableInfo.h"

#include "DBExceptions.h"
#include "FieldTypeKinds.h"
#include "InvDBConnection.h"

namespace norvik {

namespace {

constexpr int PrefixLength = 3;

QString firstRowStatement(TServerQueryMode AMode, const QString& ATableName) {
    switch (AMode) {
    case qsmMySQL:
    case qsmPostGre:
    case qsmSQLite:
        return QStringLiteral("SELECT * FROM ") + ATableName + QStringLiteral(" LIMIT 1");
    case qsmInformix:
        return QStringLiteral("SELECT FIRST 1 * FROM ") + ATableName;
    default:
        return QStringLiteral("SELECT TOP 1 * FROM ") + ATableName;
    }
}

} // namespace

TnvTableInfo::TnvTableInfo(const QString& ATableName)
    : FTableName(ATableName) {}

TnvTableInfo::TnvTableInfo(InvDBConnection& AConn, const QString& ATableName)
    : FTableName(ATableName) {
    ReadFields(AConn);
}

void TnvTableInfo::ReadFields(InvDBConnection& AConn) {
    const std::unique_ptr<TnvDataSet> query =
        AConn.PSOpenQuery(firstRowStatement(AConn.PSGetQueryMode(), FTableName), nullptr, false, true);
    if (query->FieldCount() == 0)
        throw EDBUtilsException(
            QStringLiteral("Die Tabelle %1 konnte nicht gefunden werden oder ist leer.").arg(FTableName));
    FPrefix = query->Fields(0).FieldName().left(PrefixLength);
    for (int i = 0; i < query->FieldCount(); ++i) {
        const TnvField& field = query->Fields(i);
        AddField(field.FieldName(), field.DataType(), field.Size(), QString(),
                 FieldTypeKinds::IsWide(field.DataType()));
    }
}

TnvFieldInfo& TnvTableInfo::GetFieldInfo(int Index) const {
    return *FFields.at(FFieldNames.at(Index));
}

TnvIndexInfo& TnvTableInfo::GetIndexInfo(int Index) const {
    return *FIndexes.at(FIndexNames.at(Index));
}

TnvFieldInfo& TnvTableInfo::AddField(const QString& AFieldName, TFieldType AFieldType, int ASize,
                                     const QString& ADefault, bool AIsUnicode) {
    return AddField(std::make_unique<TnvFieldInfo>(AFieldName, AFieldType, ASize, ADefault, AIsUnicode));
}

TnvFieldInfo& TnvTableInfo::AddField(std::unique_ptr<TnvFieldInfo> AField) {
    // a second field of the same name is ignored, as a sorted list without duplicates does
    if (TnvFieldInfo* present = FindField(AField->FieldName()))
        return *present;
    AField->EvalSystemFieldState(FPrefix);
    const QString name = AField->FieldName();
    TnvFieldInfo& added = *FFields.emplace(name, std::move(AField)).first->second;
    FFieldNames.append(name);
    return added;
}

TnvIndexInfo& TnvTableInfo::AddIndex(std::unique_ptr<TnvIndexInfo> AIndex) {
    if (TnvIndexInfo* present = FindIndex(AIndex->IndexName()))
        return *present;
    const QString name = AIndex->IndexName();
    TnvIndexInfo& added = *FIndexes.emplace(name, std::move(AIndex)).first->second;
    FIndexNames.append(name);
    return added;
}

TnvFieldInfo* TnvTableInfo::FindField(const QString& AFieldName) const {
    const auto found = FFields.find(AFieldName);
    return found == FFields.end() ? nullptr : found->second.get();
}

TnvIndexInfo* TnvTableInfo::FindIndex(const QString& AIndexName) const {
    const auto found = FIndexes.find(AIndexName);
    return found == FIndexes.end() ? nullptr : found->second.get();
}

TnvFieldInfo& TnvTableInfo::FieldByName(const QString& AFieldName) const {
    TnvFieldInfo* field = FindField(AFieldName);
    if (!field)
        throw EDBUtilsException(QStringLiteral("Field %1 not found in table %2").arg(AFieldName, FTableName));
    return *field;
}

TnvIndexInfo& TnvTableInfo::IndexByName(const QString& AIndexName) const {
    TnvIndexInfo* index = FindIndex(AIndexName);
    if (!index)
        throw EDBUtilsException(QStringLiteral("Index %1 not found in table %2").arg(AIndexName, FTableName));
    return *index;
}

// The write right is asked for with <prefix>Write, which no table of this program has (they
// carry <prefix>Update), so that question always answers false.
bool TnvTableInfo::SupportsExtendedRights(TRightsInheritMode AType) const {
    switch (AType) {
    case imRead:
        return FieldExists(FPrefix + QStringLiteral("Read"));
    case imWrite:
        return FieldExists(FPrefix + QStringLiteral("Write"));
    case imDelete:
        return FieldExists(FPrefix + QStringLiteral("Delete"));
    case imOwner:
        return FieldExists(FPrefix + QStringLiteral("Owner"));
    default:
        throw EDBUtilsException(QStringLiteral("Rechteabfrage mit diesem Typ nicht möglich"));
    }
}

void TnvTableInfo::Assign(const TnvTableInfo& Source) {
    FFields.clear();
    FIndexes.clear();
    FFieldNames.clear();
    FIndexNames.clear();
    FTableName = Source.FTableName;
    FPrefix = Source.FPrefix;
    for (const QString& name : Source.FFieldNames)
        AddField(Source.FFields.at(name)->Clone(FPrefix));
    for (const QString& name : Source.FIndexNames)
        AddIndex(Source.FIndexes.at(name)->Clone());
}

std::unique_ptr<TnvTableInfo> TnvTableInfo::Clone() const {
    auto clone = std::make_unique<TnvTableInfo>();
    clone->Assign(*this);
    return clone;
}

} // namespace norvik
