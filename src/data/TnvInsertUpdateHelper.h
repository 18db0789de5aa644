#pragma once

#include "CaseInsensitiveComparer.h"
#include "TFieldType.h"
#include "TnvParams.h"
#include "Variant.h"

#include <QFlags>
#include <QList>
#include <QString>
#include <functional>
#include <memory>
#include <unordered_map>

namespace norvik {

class InvDBConnection;
class TnvDataSet;
class TnvField;
class TnvFieldInfo;
class TnvTableInfo;
class TRepDBChangeBlock;

enum TnvAddFieldKind { fkUnknown, fkString, fkInteger, fkDate, fkDateTime, fkFloat };

enum TnvInsertUpdateHelperMode {
    ktiuhAddID = 0x1,
    ktiuhAddCreationFields = 0x2,
    ktiuhAddChangedFields = 0x4,
};
Q_DECLARE_FLAGS(TnvInsertUpdateHelperModes, TnvInsertUpdateHelperMode)
Q_DECLARE_OPERATORS_FOR_FLAGS(TnvInsertUpdateHelperModes)

inline constexpr TnvInsertUpdateHelperModes AllHelperModes{ktiuhAddID | ktiuhAddCreationFields |
                                                           ktiuhAddChangedFields};

enum TUpdateKind { ukModify, ukInsert, ukDelete };

// a source of IDs: connection, table, range and system give the first ID
using TnvKeyGenProc = std::function<qint64(InvDBConnection&, const QString&, int, int)>;

// Writes one row. The caller adds field values one at a time; the helper turns each into an
// SQL literal of the dialect or a bound parameter, fills in the system fields, builds the
// INSERT, UPDATE or DELETE and runs it in a transaction, taking a new ID when the key
// collides. A field that the table does not have is passed over without a word.
class TnvInsertUpdateHelper {
public:
    struct TnvFieldData {
        QString FieldName;
        TnvAddFieldKind FieldKind = fkUnknown;
        // the SQL text of the value, or "?" for a bound parameter
        QString FieldData;
        // the plain value, as a change block records it
        QString FieldDataCB;
        TnvParam* Param = nullptr;
    };

    // without a connection: only statement text can be made
    TnvInsertUpdateHelper(const QString& ATableName, const QString& APrefix);
    TnvInsertUpdateHelper(InvDBConnection& AConn, const QString& ATableName, bool APhysicalDelete = false);

    static std::unique_ptr<TnvInsertUpdateHelper>
    CreateAndInsert(InvDBConnection& AConn, const QString& ATableName, bool APhysicalDelete = false,
                    TnvInsertUpdateHelperModes AModes = AllHelperModes);
    static std::unique_ptr<TnvInsertUpdateHelper>
    CreateAndInsertWithID(InvDBConnection& AConn, const QString& ATableName, qint64 ANewID,
                          bool APhysicalDelete = false, TnvInsertUpdateHelperModes AModes = AllHelperModes);
    static std::unique_ptr<TnvInsertUpdateHelper>
    CreateAndUpdate(InvDBConnection& AConn, const QString& ATableName, const QString& AKeyField,
                    const QString& AKeyValue, bool APhysicalDelete = false,
                    TnvInsertUpdateHelperModes AModes = AllHelperModes);
    // an update if a row with AKeyField=AKeyValue exists, an insert otherwise
    static std::unique_ptr<TnvInsertUpdateHelper>
    CreateAndInsertUpdate(InvDBConnection& AConn, const QString& ATableName, const QString& AKeyField,
                          const QString& AKeyValue, bool APhysicalDelete = false,
                          TnvInsertUpdateHelperModes AModes = AllHelperModes);
    static std::unique_ptr<TnvInsertUpdateHelper>
    CreateAndDelete(InvDBConnection& AConn, const QString& ATableName, const QString& AKeyField,
                    const QString& AKeyValue, bool APhysicalDelete = false,
                    TnvInsertUpdateHelperModes AModes = AllHelperModes);

    // the main operation: a value, converted by AFieldKind or, for fkUnknown, by the field's type
    void AddField(const QString& AFieldName, const Variant& ASQLValue, TnvAddFieldKind AFieldKind = fkUnknown,
                  bool CheckMaxLen = false);
    void AddField(const TnvField& AField, bool IgnoreNulls);
    // a bound parameter for the caller to set; nullptr for a repeated name when
    // IgnoreExistingFields is set
    TnvParam* AddField(const QString& AFieldName);
    void AddFieldText(const QString& AFieldName, const QString& AValue, TFieldType AFieldType,
                      bool CheckMaxLen = false);
    void AddFieldMemory(const QString& AFieldName, const char* AMemory, int ASize, TFieldType AFieldType);
    void AddFieldMemory(const QString& AFieldName, const QByteArray& AMemory, TFieldType AFieldType);
    // text in the ANSI code page, compressed, as a blob parameter
    void AddTextToBlobCompressed(const QString& AFieldName, const QString& AData, int ACompressionLevel);
    void AddDataSetFields(const QString& ATableName, const QString& AFields, const QString& AFilter,
                          const QString& AExceptFields, bool IgnoreNulls);
    void AddDataSetFields(TnvDataSet& ADataSet, bool ASystemFields, const QString& ExcludeFields,
                          bool IgnoreNulls);
    void AddDataSetFieldsComplete(TnvDataSet& ADataSet, bool IgnoreNulls);

    void AddCreationFields(const QString& APrefix = {});
    void AddChangedFields(const QString& APrefix = {});
    void AddDeletedField(const QString& APrefix = {});
    // <prefix>ID with ANewID (a new one for 0) and the creation fields; the ID becomes the key
    void AddCreationFieldsEx(const QString& APrefix = {}, qint64 ANewID = 0);
    void AddIDField(int ARange = 1);

    bool FieldExists(const QString& AFieldName) const;
    bool FieldExistsInTable(const QString& AFieldName) const;
    int FieldCount() const { return int(FFieldList.size()); }
    const QList<TnvFieldData>& FieldList() const { return FFieldList; }
    void Clear();
    // reads the table information anew
    void ForceTableInfo();

    QString SQLInsert() const;
    QString SQLUpdate(const QString& AFilter) const;
    QString SQLDelete(const QString& AFilter) const;

    bool Execute();
    bool Execute(InvDBConnection& Conn, bool AReplicate, bool ABackupMode);

    std::unique_ptr<TRepDBChangeBlock> CreateDBChangeBlock() const;
    std::unique_ptr<TRepDBChangeBlock> CreateDBChangeBlock(const QString& Action, const QString& AKey) const;

    TUpdateKind UpdateKind() const { return FUpdateKind; }
    void SetUpdateKind(TUpdateKind AValue) { FUpdateKind = AValue; }
    const QString& KeyFilter() const { return FKeyFilter; }
    const QString& ExternalFilter() const { return FExternalFilter; }
    void SetExternalFilter(const QString& AValue) { FExternalFilter = AValue; }
    bool PhysicalDelete() const { return FPhysicalDelete; }
    void SetPhysicalDelete(bool AValue) { FPhysicalDelete = AValue; }
    const QString& KeyFields() const { return FKeyFields; }
    void SetKeyFields(const QString& AValue);
    const QString& KeyValues() const { return FKeyValues; }
    // also takes the value as the last ID when it is a number
    void SetKeyValues(const QString& AValue);
    const QString& Prefix() const { return FPrefix; }
    void SetPrefix(const QString& AValue) { FPrefix = AValue; }
    quint32 HashCodeDeletedField();
    quint32 HashCodeVisibleStateField();
    bool IgnoreExistingFields() const { return FIgnoreExistingFields; }
    void SetIgnoreExistingFields(bool AValue) { FIgnoreExistingFields = AValue; }
    bool HandleMemoAsBinary() const { return FHandleMemoAsBinary; }
    void SetHandleMemoAsBinary(bool AValue) { FHandleMemoAsBinary = AValue; }
    const QString& TableName() const { return FTableName; }
    TnvParams& Params() { return FParams; }
    bool RaiseExceptionOnFieldExtension() const { return FRaiseExceptionOnFieldExtension; }
    void SetRaiseExceptionOnFieldExtension(bool AValue) { FRaiseExceptionOnFieldExtension = AValue; }
    TnvTableInfo* TableInfo() const { return FTableInfo; }
    bool IDProvided() const { return FIDProvided; }
    void SetIDProvided(bool AValue) { FIDProvided = AValue; }
    qint64 LastID() const { return FLastID; }
    void SetKeyGen(TnvKeyGenProc AKeyGen) { FKeyGen = std::move(AKeyGen); }

private:
    QString FTableName;
    QString FPrefix;
    QList<TnvFieldData> FFieldList;
    std::unordered_map<QString, int, CaseInsensitiveComparer, CaseInsensitiveComparer> FFieldData;
    TnvKeyGenProc FKeyGen;
    InvDBConnection* FConnection = nullptr;
    TnvTableInfo* FTableInfo = nullptr;
    TnvParams FParams;
    TUpdateKind FUpdateKind = ukModify;
    QString FKeyFilter;
    bool FPhysicalDelete = false;
    QString FKeyValues;
    QString FKeyFields;
    bool FRaiseExceptionOnFieldExtension = true;
    QString FExternalFilter;
    quint32 FHashCodeDeleted = 0;
    quint32 FHashCodeVisibleState = 0;
    qint64 FLastID = 0;
    bool FIgnoreExistingFields = false;
    bool FHandleMemoAsBinary = false;
    bool FIDProvided = false;
    bool FShallReplicate = false;

    QString PrefixOr(const QString& APrefix) const { return APrefix.isEmpty() ? FPrefix : APrefix; }
    TnvFieldInfo* TableField(const QString& AFieldName) const;
    void AppendField(const TnvFieldData& AData);
    void AddParamField(const QString& AFieldName, TFieldType ADataType, const Variant& AValue);
    TnvAddFieldKind ConvertValue(TnvAddFieldKind AKind, Variant& AValue) const;
    QString CheckedText(const QString& AFieldName, const QString& AText) const;
    QString SQLText(TnvAddFieldKind AKind, const Variant& AValue, const QString& AUnicodePrefix) const;
    QString ChangeBlockText(TnvAddFieldKind AKind, const Variant& AValue) const;
    QString EncodeDate(TDateTime AValue, bool AWithTime) const;
    qint64 FetchID(int ARange);
    void RebuildKeyFilter();
    // the statement changes the row (or rows) whose key field holds the value
    void TargetRow(TUpdateKind AKind, const QString& AKeyField, const QString& AKeyValue);
    void CheckKeyFilter() const;
    bool IsPhysicalDelete() const;
    QString Statement() const;
    bool RunAttempts(InvDBConnection& Conn);
    bool RetryWithNewKey(const std::exception& AError, int AAttempt);
    void ReplaceFieldData(const QString& AFieldName, const QString& AFieldData);
};

} // namespace norvik
