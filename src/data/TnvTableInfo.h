#pragma once

#include "CaseInsensitiveLess.h"
#include "TnvFieldInfo.h"
#include "TnvIndexInfo.h"

#include <QString>
#include <QStringList>
#include <map>
#include <memory>

namespace norvik {

class InvDBConnection;

enum TRightsInheritMode { imAny, imRead, imWrite, imDelete, imOwner, imNone };

// A table as the database has it: its fields and indexes, and the three-letter prefix with
// which every field of the table begins, read from the first field's name. All lookups by
// name ignore case.
class TnvTableInfo {
public:
    // an empty description, for filling by hand
    explicit TnvTableInfo(const QString& ATableName = {});
    // reads the fields of the table through the connection; the table need not hold a row
    TnvTableInfo(InvDBConnection& AConn, const QString& ATableName);

    const QString& TableName() const { return FTableName; }
    const QString& QualifiedTableName() const { return FTableName; }
    const QString& Prefix() const { return FPrefix; }
    void SetPrefix(const QString& APrefix) { FPrefix = APrefix; }
    int FieldCount() const { return int(FFieldNames.size()); }
    int IndexCount() const { return int(FIndexNames.size()); }
    // in order of addition
    TnvFieldInfo& Field(int Index) const { return GetFieldInfo(Index); }
    TnvIndexInfo& Index(int Index) const { return GetIndexInfo(Index); }
    TnvFieldInfo& GetFieldInfo(int Index) const;
    TnvIndexInfo& GetIndexInfo(int Index) const;
    const QStringList& FieldNames() const { return FFieldNames; }

    TnvFieldInfo& AddField(const QString& AFieldName, TFieldType AFieldType, int ASize,
                           const QString& ADefault, bool AIsUnicode);
    TnvFieldInfo& AddField(std::unique_ptr<TnvFieldInfo> AField);
    TnvIndexInfo& AddIndex(std::unique_ptr<TnvIndexInfo> AIndex);

    TnvFieldInfo* FindField(const QString& AFieldName) const;
    TnvIndexInfo* FindIndex(const QString& AIndexName) const;
    // raise EDBUtilsException when absent
    TnvFieldInfo& FieldByName(const QString& AFieldName) const;
    TnvIndexInfo& IndexByName(const QString& AIndexName) const;
    bool FieldExists(const QString& AFieldName) const { return FindField(AFieldName) != nullptr; }

    bool SupportsExtendedRights(TRightsInheritMode AType) const;

    void Assign(const TnvTableInfo& Source);
    std::unique_ptr<TnvTableInfo> Clone() const;

private:
    std::map<QString, std::unique_ptr<TnvFieldInfo>, CaseInsensitiveLess> FFields;
    std::map<QString, std::unique_ptr<TnvIndexInfo>, CaseInsensitiveLess> FIndexes;
    QStringList FIndexNames;
    QStringList FFieldNames;
    QString FPrefix;
    QString FTableName;

    void ReadFields(InvDBConnection& AConn);
};

} // namespace norvik
