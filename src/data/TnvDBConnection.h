#pragma once

#include "CaseInsensitiveComparer.h"
#include "InvDBConnection.h"
#include "TnvNextNumberCache.h"
#include "TnvSQLiteParser.h"

#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <mutex>
#include <unordered_map>
#include <vector>

namespace norvik {

class TnvSQLiteDatabase;

// The connection to one SQLite database file. It rewrites every statement for SQLite,
// counts nested transactions onto the one real transaction, knows each table's metadata
// and delete flag, reads the identity of its system from sysSystems and issues IDs.
//
// Order of use: set AliasName, call InitDirectSQLiteDatabase, then SetConnected(true).
class TnvDBConnection : public InvDBConnection {
public:
    TnvDBConnection();
    ~TnvDBConnection() override;
    TnvDBConnection(const TnvDBConnection&) = delete;
    TnvDBConnection& operator=(const TnvDBConnection&) = delete;

    // names the file; a missing file is created at connect. Encrypted databases are not
    // supported: a non-empty AEncryptionString makes the connect fail.
    void InitDirectSQLiteDatabase(const QString& AFileName, const QString& AEncryptionString = {});
    void SetConnected(bool AValue) { PSConnect(AValue); }
    bool Connected() const { return PSGetConnected(); }

    const QString& Name() const { return FName; }
    void SetName(const QString& AName) { FName = AName; }
    const QString& AliasName() const { return FAliasName; }
    void SetAliasName(const QString& AValue) { FAliasName = AValue; }
    int DefaultSystemID() const { return FDefaultSystemID; }
    void SetDefaultSystemID(int AValue) { FDefaultSystemID = AValue; }
    bool AutoReadDataStructure() const { return FAutoReadDataStructure; }
    void SetAutoReadDataStructure(bool AValue) { FAutoReadDataStructure = AValue; }
    bool PreventDeleteFieldHandling() const { return FPreventDeleteFieldHandling; }
    void SetPreventDeleteFieldHandling(bool AValue) { FPreventDeleteFieldHandling = AValue; }
    QStringList IgnoreTables;

    std::function<void(TnvDBConnection&)> OnSetParams;
    std::function<int(TnvDBConnection&)> OnGetSystemID;
    std::function<void(TnvDBConnection&)> BeforeConnect;
    std::function<void(TnvDBConnection&)> AfterConnect;
    std::function<void(TnvDBConnection&)> BeforeDisconnect;
    std::function<void(TnvDBConnection&)> AfterDisconnect;

    const QString& SystemName() const { return FSystemName; }
    bool IsNotebook() const { return FIsNotebook; }
    bool IsSystemActive() const { return FIsActive; }
    const QString& SystemGUID() const { return FSystemGUID; }

    void ReadSystemInfo();
    void CheckReplication();
    void UpdateDeleteState(const QString& APrefix, const QString& ATableName, TnvDeleteFlagKind ADelete);
    TnvNextNumberCache& NextNumberCache() { return FNextNumberCache; }

    // InvDBConnection
    void PSAssign(const InvDBConnection& Source, const QString& ADatabaseName) override;
    std::unique_ptr<InvDBConnection> PSClone(const QString& ADatabaseName) const override;
    void PSConnect(bool Connect) override;
    bool PSGetConnected() const override;
    InvDBConnection& PSGetPooledClone() override;
    void PSReleaseToPool() override;
    void PSStartTransaction() override;
    void PSEndTransaction(bool Commit) override;
    bool PSInTransaction() const override;
    int PSExecuteStatement(const QString& ASQL, const TnvParams* AParams = nullptr,
                           std::unique_ptr<TnvDataSet>* ResultSet = nullptr, bool RequestLive = false,
                           bool SystemQuery = false) override;
    std::unique_ptr<TnvDataSet> PSOpenQuery(const QString& ASQL, const TnvParams* AParams = nullptr,
                                            bool RequestLive = false, bool SystemQuery = false) override;
    std::unique_ptr<TnvDataSet> PSOpenQueryEx(const QString& ASQL, std::initializer_list<Variant> Params,
                                              bool AddDelete, bool RequestLive = false,
                                              bool SystemQuery = false) override;
    Variant PSQueryValue(const QString& ASQL, const Variant& ADefault, const TnvParams* AParams = nullptr,
                         bool SystemQuery = false) override;
    Variant PSQueryValueEx(const QString& ASQL, std::initializer_list<Variant> Params,
                           const Variant& ADefault, bool AddDelete, bool SystemQuery = false) override;
    void PSFlushSchemaCache(const QString& ATableName) override;
    std::unique_ptr<TnvDataSet> PSPrepareQueryEx(const QString& ASQL, std::initializer_list<Variant> Params,
                                                 bool AddDelete, bool SystemQuery = false) override;
    QString PSGetTablePrefix(const QString& ATableName) override;
    qint64 PSGenID(const QString& ATableName, int ASystem = 0, int ACount = 1) override;
    int PSSystemID() const override { return FSystemID; }
    QString PSSessionName() const override;
    QString PSAliasName() const override { return FAliasName; }
    QString PSDatabaseName() const override { return FDatabaseName; }
    void PSGetTableNames(QStringList& AList, bool ASystemTables) override;
    bool PSTableExists(const QString& ATableName, bool ForceReloadTables = false) override;
    TServerQueryMode PSGetQueryMode() const override { return FQueryMode; }
    qint64 PSGetDatabaseLimit() override { return 0; }
    qint64 PSGetDatabaseSize() override { return 0; }
    TnvDatabaseKind PSGetDatabaseKind() const override { return ktdkData; }
    TnvDeleteFlagKind PSGetDeleteFlagKindByPrefix(const QString& APrefix) override;
    TnvDeleteFlagKind PSGetDeleteFlagKindByTableName(const QString& ATableName) override;
    bool PSReplicate(const QString& ATableName) const override;
    bool PSShallReplicate(const QString& ATableName, TnvReplicationMode AWantReplicate) const override;
    bool PSSaveChangeBlock(const TReplicationBaseClass& ARep) override;
    InvDBConnection& PSReplicationDatabase() override { return *this; }
    bool PSGetReplicationActive() const override { return FReplicationActive; }
    void PSSetReplicationActive(bool AValue) override { FReplicationActive = AValue; }
    bool PSUnicodeEnabled() const override { return FQueryMode == qsmMSSQL; }
    QString PSUnicodeStringPrefix() const override;
    bool PSIsFieldUnicode(const QString& ATableName, const QString& AFieldName) override;
    QStringList PSReplicationIgnoreTables() const override { return FReplicationIgnoreTables; }
    QString PSEncodeDateTime(TDateTime AValue) const override;
    QString PSEncodeDate(TDateTime AValue) const override;
    void PSForEachRecord(const QString& ASQL, const TnvRecordCallback& ACallBack,
                         const TnvParams* AParams = nullptr) override;
    void PSForEachRecordEx(const QString& ASQL, const TnvRecordCallback& ACallBack,
                           std::initializer_list<Variant> Params, bool AddDelete, bool RequestLive = false,
                           bool SystemQuery = false) override;
    Variant PSPropertyValueByName(const QString& AName) const override;
    TnvTableInfoList& PSGetTableInfoList() override { return FTableInfoList; }

private:
    using DeleteFlagMap =
        std::unordered_map<QString, TnvDeleteFlagKind, CaseInsensitiveComparer, CaseInsensitiveComparer>;
    using FieldTypeCache =
        std::unordered_map<QString, TnvFieldTypeInfo, CaseInsensitiveComparer, CaseInsensitiveComparer>;

    std::unique_ptr<TnvSQLiteDatabase> FDatabase;
    QString FDatabaseName;
    QString FEncryptionString;
    TServerQueryMode FQueryMode = qsmMSSQL;
    FieldTypeCache FFieldTypeCache;
    int FPoolCounter = 0;
    int FSystemID = -1;
    QString FSystemName;
    bool FIsNotebook = false;
    bool FIsActive = false;
    QString FSystemGUID;
    bool FAllCommit = false;
    int FTransactionCount = 0;
    DeleteFlagMap FDeleteFlagsByPrefix;
    DeleteFlagMap FDeleteFlagsByTable;
    QStringList FReplicationIgnoreTables;
    QStringList FTableNames;
    QString FName;
    QString FAliasName;
    bool FAutoReadDataStructure = true;
    bool FPreventDeleteFieldHandling = false;
    int FDefaultSystemID = 0;
    bool FReplicationActive = false;
    std::vector<std::unique_ptr<TnvDBConnection>> FConnectionPool;
    std::mutex FPoolLock;
    TnvDBConnection* FConnectionParent = nullptr;
    bool FInUse = false;
    TnvTableInfoList FTableInfoList;
    TnvSQLiteParser FSQLiteParser;
    TnvNextNumberCache FNextNumberCache;

    void Connect();
    void Disconnect();
    void EnsureConnected();
    QString PrepareStatement(const QString& ASQL, bool SystemQuery);
    QString ExpandStatement(const QString& ASQL, std::initializer_list<Variant> Params, bool AddDelete);
    int RunQuery(TnvDataSet& AQuery, bool AOpen);
    void ReadDeleteFlags();
    void ReadDeleteFlagsFromTableInfo();
    void ReadDeleteFlagsFromPragma();
    void AddDeleteFlag(const QString& APrefix, const QString& ATableName, TnvDeleteFlagKind AKind);
    void LoadDeleteFlagsOnDemand();
    qint64 IssueNumbers(const QString& ATableName, int ASystem, int ACount);
    void ApplySystemRow(TnvDataSet& ARow);
};

} // namespace norvik
