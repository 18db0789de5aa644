#include "TnvDBConnection.h"

#include "Clock.h"
#include "DBExceptions.h"
#include "DateUtils.h"
#include "DebugLog.h"
#include "FormatText.h"
#include "SQLSystem.h"
#include "SoftDeleteCondition.h"
#include "TRepChangeBlockWriter.h"
#include "TableInfoFunctions.h"
#include "TnvDBGlobals.h"
#include "TnvOptimizedADQuery.h"
#include "TnvSQLiteDatabase.h"
#include "TnvTableInfo.h"

#include <QCoreApplication>
#include <QThread>

namespace norvik {

namespace {

constexpr int TraceLevel = 8;
constexpr qint64 SystemRange = 10000000;

const QString& tableListStatement() {
    static const QString text = QStringLiteral(
        "SELECT name as TableName\r\nFROM sqlite_master\r\nWHERE type='table'\r\nORDER BY name");
    return text;
}

bool isMainThread() {
    const QCoreApplication* application = QCoreApplication::instance();
    return application && QThread::currentThread() == application->thread();
}

// the framework's begin and end hooks around a statement, on the main thread only
class DBActionBracket {
public:
    DBActionBracket()
        : FActive(isMainThread()) {
        if (FActive && TnvDBGlobals::OnBeginDBAction)
            TnvDBGlobals::OnBeginDBAction();
    }
    ~DBActionBracket() {
        if (FActive && TnvDBGlobals::OnEndDBAction)
            TnvDBGlobals::OnEndDBAction();
    }
    DBActionBracket(const DBActionBracket&) = delete;
    DBActionBracket& operator=(const DBActionBracket&) = delete;

private:
    bool FActive;
};

bool startsWithSelect(const QString& ASQL) {
    const QString trimmed = ASQL.trimmed();
    const qsizetype blank = trimmed.indexOf(QLatin1Char(' '));
    const QString firstWord = (blank < 0 ? trimmed : trimmed.left(blank)).trimmed();
    return firstWord.compare(QLatin1String("SELECT"), Qt::CaseInsensitive) == 0;
}

bool isFrameworkTable(const QString& ATableName) {
    const QString start = ATableName.left(3).toCaseFolded();
    return start == QLatin1String("sys") || start == QLatin1String("tbl");
}

// date and time formats of the dialects, for the date formatter
QString dateTimeFormat(TServerQueryMode AMode) {
    switch (AMode) {
    case qsmMSAccess:
        return QStringLiteral("'#'mm'/'dd'/'yyyy hh:nn:ss'#'");
    case qsmMySQL:
    case qsmPERVASIVE:
    case qsmSQLite:
        return QStringLiteral("\"'\"yyyy'-'mm'-'dd hh:nn:ss\"'\"");
    case qsmFoxPro:
        return QStringLiteral("{mm/dd/yyyy hh:nn}");
    case qsmCenturaSQLBase:
    case qsmInformix:
        return QStringLiteral("mm/dd/yyyy hh:nn");
    default:
        return QStringLiteral("\"'\"dd.mm.yyyy hh:nn:ss\"'\"");
    }
}

QString dateFormat(TServerQueryMode AMode) {
    switch (AMode) {
    case qsmMSAccess:
        return QStringLiteral("'#'mm'/'dd'/'yyyy'#'");
    case qsmMySQL:
    case qsmPERVASIVE:
        return QStringLiteral("\"'\"yyyy'-'mm'-'dd\"'\"");
    case qsmSQLite:
        return QStringLiteral("\"'\"yyyy'-'mm'-'dd 00:00:00\"'\"");
    case qsmFoxPro:
        return QStringLiteral("{mm/dd/yyyy}");
    case qsmCenturaSQLBase:
    case qsmInformix:
        return QStringLiteral("mm/dd/yyyy");
    default:
        return QStringLiteral("\"'\"dd.mm.yyyy\"'\"");
    }
}

// an absent field reads as empty
QString textOf(TnvDataSet& ARow, const QString& AFieldName) {
    const TnvField* field = ARow.FindField(AFieldName);
    return field ? field->AsString() : QString();
}

bool readsAsYes(TnvDataSet& ARow, const QString& AFieldName) {
    return textOf(ARow, AFieldName).trimmed().toUpper() == QLatin1String("J");
}

} // namespace

TnvDBConnection::TnvDBConnection()
    : FReplicationIgnoreTables{QStringLiteral("sysREChangeBlocks"), QStringLiteral("sysTableIDs"),
                               QStringLiteral("sysSystems")} {}

TnvDBConnection::~TnvDBConnection() {
    FConnectionPool.clear();
    if (FDatabase)
        FDatabase->Close();
}

void TnvDBConnection::InitDirectSQLiteDatabase(const QString& AFileName, const QString& AEncryptionString) {
    if (!FDatabase)
        FDatabase = std::make_unique<TnvSQLiteDatabase>();
    FDatabaseName = AFileName;
    FEncryptionString = AEncryptionString;
    FQueryMode = qsmSQLite;
}

// ---------------------------------------------------------------------------------------
// connecting

void TnvDBConnection::PSConnect(bool Connect) {
    if (Connect == PSGetConnected())
        return;
    if (Connect)
        this->Connect();
    else
        Disconnect();
}

bool TnvDBConnection::PSGetConnected() const {
    return FDatabase && FDatabase->IsOpen();
}

void TnvDBConnection::Connect() {
    if (!FDatabase)
        throw EDBConnectionException(
            QStringLiteral("There is no alias assigned. Please assign an valid alias name"));
    if (OnSetParams)
        OnSetParams(*this);
    if (BeforeConnect)
        BeforeConnect(*this);
    if (!FEncryptionString.isEmpty())
        throw EDBConnectionException(QStringLiteral("Verschlüsselte Datenbanken werden nicht unterstützt."));
    FDatabase->Open(FDatabaseName);
    FTableNames.clear();
    if (FAutoReadDataStructure)
        ReadAllSQLiteTableInfos(*this, FTableInfoList);
    ReadDeleteFlags();
    if (PSGetConnected() && FSystemID < 1) {
        ReadSystemInfo();
        CheckReplication();
    }
    if (AfterConnect)
        AfterConnect(*this);
}

void TnvDBConnection::Disconnect() {
    if (BeforeDisconnect)
        BeforeDisconnect(*this);
    FDatabase->Close();
    FSystemID = -1;
    FTransactionCount = 0;
    if (AfterDisconnect)
        AfterDisconnect(*this);
}

void TnvDBConnection::EnsureConnected() {
    if (!PSGetConnected()) {
        try {
            PSConnect(true);
        } catch (const std::exception&) {
            // the failure below says what the caller did wrong
        }
    }
    if (!PSGetConnected())
        throw EDBConnectionException(
            QStringLiteral("Please connect to database, before executing sql-statements."));
}

// ---------------------------------------------------------------------------------------
// statements

QString TnvDBConnection::PrepareStatement(const QString& ASQL, bool SystemQuery) {
    QString sql = ASQL;
    if (FQueryMode == qsmSQLite)
        sql = FSQLiteParser.ParseSQL(sql);
    if (!SystemQuery && !FPreventDeleteFieldHandling && TnvDBGlobals::StatementConverter)
        sql = TnvDBGlobals::StatementConverter(*this, sql);
    return sql;
}

int TnvDBConnection::RunQuery(TnvDataSet& AQuery, bool AOpen) {
    const DBActionBracket bracket;
    if (AOpen) {
        AQuery.Open();
        return AQuery.RowsAffected();
    }
    return AQuery.ExecSQL();
}

int TnvDBConnection::PSExecuteStatement(const QString& ASQL, const TnvParams* AParams,
                                        std::unique_ptr<TnvDataSet>* ResultSet, bool RequestLive,
                                        bool SystemQuery) {
    Q_UNUSED(RequestLive)
    EnsureConnected();
    const QString sql = PrepareStatement(ASQL, SystemQuery);
    auto query = std::make_unique<TnvOptimizedADQuery>(*FDatabase);
    query->SetSQL(sql);
    if (AParams)
        query->Params().Assign(*AParams);
    const int rows = RunQuery(*query, ResultSet != nullptr || startsWithSelect(sql));
    if (ResultSet)
        *ResultSet = std::move(query);
    return rows;
}

std::unique_ptr<TnvDataSet> TnvDBConnection::PSOpenQuery(const QString& ASQL, const TnvParams* AParams,
                                                         bool RequestLive, bool SystemQuery) {
    std::unique_ptr<TnvDataSet> result;
    PSExecuteStatement(ASQL, AParams, &result, RequestLive, SystemQuery);
    return result;
}

QString TnvDBConnection::ExpandStatement(const QString& ASQL, std::initializer_list<Variant> Params,
                                         bool AddDelete) {
    QString sql = Params.size() > 0 ? FormatText(ASQL, Params) : ASQL;
    if (!AddDelete || FPreventDeleteFieldHandling)
        return sql;
    const QString table = FindSourceTable(sql);
    if (table.isEmpty() || !TableExists(*this, table))
        return sql;
    return AddWhere(sql, SoftDeleteCondition(this, table));
}

std::unique_ptr<TnvDataSet> TnvDBConnection::PSOpenQueryEx(const QString& ASQL,
                                                           std::initializer_list<Variant> Params,
                                                           bool AddDelete, bool RequestLive,
                                                           bool SystemQuery) {
    return PSOpenQuery(ExpandStatement(ASQL, Params, AddDelete), nullptr, RequestLive, SystemQuery);
}

std::unique_ptr<TnvDataSet> TnvDBConnection::PSPrepareQueryEx(const QString& ASQL,
                                                              std::initializer_list<Variant> Params,
                                                              bool AddDelete, bool SystemQuery) {
    EnsureConnected();
    auto query = std::make_unique<TnvOptimizedADQuery>(*FDatabase);
    query->SetSQL(PrepareStatement(ExpandStatement(ASQL, Params, AddDelete), SystemQuery));
    return query;
}

Variant TnvDBConnection::PSQueryValue(const QString& ASQL, const Variant& ADefault, const TnvParams* AParams,
                                      bool SystemQuery) {
    const auto query = PSOpenQuery(ASQL, AParams, false, SystemQuery);
    if (query->Eof() || query->FieldCount() == 0)
        return ADefault;
    const TnvField& field = query->Fields(0);
    if (field.IsNull())
        return ADefault;
    if (field.Value().isString())
        return Variant(field.AsString());
    return field.Value();
}

Variant TnvDBConnection::PSQueryValueEx(const QString& ASQL, std::initializer_list<Variant> Params,
                                        const Variant& ADefault, bool AddDelete, bool SystemQuery) {
    return PSQueryValue(ExpandStatement(ASQL, Params, AddDelete), ADefault, nullptr, SystemQuery);
}

void TnvDBConnection::PSForEachRecord(const QString& ASQL, const TnvRecordCallback& ACallBack,
                                      const TnvParams* AParams) {
    const auto query = PSOpenQuery(ASQL, AParams);
    for (; !query->Eof(); query->Next())
        ACallBack(*query);
}

void TnvDBConnection::PSForEachRecordEx(const QString& ASQL, const TnvRecordCallback& ACallBack,
                                        std::initializer_list<Variant> Params, bool AddDelete,
                                        bool RequestLive, bool SystemQuery) {
    const auto query = PSOpenQueryEx(ASQL, Params, AddDelete, RequestLive, SystemQuery);
    for (; !query->Eof(); query->Next())
        ACallBack(*query);
}

// The structure update calls this around each table it may change: what is known of the
// table is read anew on its next use, so that fields it adds are written in the same run.
// The delete flags of all tables are read anew on demand, since a new table brings its own.
void TnvDBConnection::PSFlushSchemaCache(const QString& ATableName) {
    FTableInfoList.erase(ATableName);
    FTableNames.clear();
    FDeleteFlagsByPrefix.clear();
    FDeleteFlagsByTable.clear();
}

// ---------------------------------------------------------------------------------------
// transactions: one real transaction, nesting is counted

void TnvDBConnection::PSStartTransaction() {
    EnsureConnected();
    if (FTransactionCount == 0) {
        FAllCommit = true;
        FDatabase->StartTransaction();
    }
    ++FTransactionCount;
}

// A rollback at any depth dooms the whole transaction: the outer commit then rolls back.
void TnvDBConnection::PSEndTransaction(bool Commit) {
    if (FTransactionCount < 1)
        throw ETransactionException(
            QStringLiteral("Es wurden zu viele Transaktionen aufgehoben. %1").arg(FName));
    --FTransactionCount;
    if (Commit && FAllCommit) {
        if (FTransactionCount == 0)
            FDatabase->Commit();
        return;
    }
    if (FTransactionCount == 0)
        FDatabase->Rollback();
    else
        FAllCommit = false;
}

bool TnvDBConnection::PSInTransaction() const {
    return FDatabase && FDatabase->InTransaction();
}

// ---------------------------------------------------------------------------------------
// clones and the pool

void TnvDBConnection::PSAssign(const InvDBConnection& Source, const QString& ADatabaseName) {
    const auto* source = dynamic_cast<const TnvDBConnection*>(&Source);
    if (!source)
        throw EDBConnectionException(QStringLiteral("Die Verbindung kann nicht übernommen werden."));
    FAliasName = source->FAliasName;
    FDefaultSystemID = source->FDefaultSystemID;
    FAutoReadDataStructure = source->FAutoReadDataStructure;
    FPreventDeleteFieldHandling = source->FPreventDeleteFieldHandling;
    IgnoreTables = source->IgnoreTables;
    OnSetParams = source->OnSetParams;
    OnGetSystemID = source->OnGetSystemID;
    if (source->FDatabase)
        InitDirectSQLiteDatabase(ADatabaseName.isEmpty() ? source->FDatabaseName : ADatabaseName,
                                 source->FEncryptionString);
}

std::unique_ptr<InvDBConnection> TnvDBConnection::PSClone(const QString& ADatabaseName) const {
    auto clone = std::make_unique<TnvDBConnection>();
    clone->PSAssign(*this, ADatabaseName);
    return clone;
}

InvDBConnection& TnvDBConnection::PSGetPooledClone() {
    if (FConnectionParent)
        return FConnectionParent->PSGetPooledClone();
    const std::lock_guard<std::mutex> lock(FPoolLock);
    for (const auto& clone : FConnectionPool) {
        if (!clone->FInUse) {
            clone->FInUse = true;
            return *clone;
        }
    }
    auto clone = std::make_unique<TnvDBConnection>();
    clone->PSAssign(*this, FDatabaseName);
    clone->SetName(FName + QStringLiteral("_POOL") + QString::number(++FPoolCounter));
    clone->FConnectionParent = this;
    clone->FInUse = true;
    FConnectionPool.push_back(std::move(clone));
    return *FConnectionPool.back();
}

void TnvDBConnection::PSReleaseToPool() {
    if (!FConnectionParent) {
        FInUse = false;
        return;
    }
    const std::lock_guard<std::mutex> lock(FConnectionParent->FPoolLock);
    FInUse = false;
}

// ---------------------------------------------------------------------------------------
// tables

QString TnvDBConnection::PSGetTablePrefix(const QString& ATableName) {
    return GetTablePrefix(*this, ATableName);
}

void TnvDBConnection::PSGetTableNames(QStringList& AList, bool ASystemTables) {
    AList.clear();
    const auto query = PSOpenQuery(tableListStatement(), nullptr, false, true);
    for (; !query->Eof(); query->Next()) {
        const QString name = query->Fields(0).AsString();
        if (ASystemTables || !name.startsWith(QLatin1String("sqlite_"), Qt::CaseInsensitive))
            AList.append(name);
    }
}

bool TnvDBConnection::PSTableExists(const QString& ATableName, bool ForceReloadTables) {
    if (FTableNames.isEmpty() || ForceReloadTables) {
        PSGetTableNames(FTableNames, true);
        FTableNames.sort(Qt::CaseInsensitive);
    }
    return FTableNames.contains(ATableName.trimmed(), Qt::CaseInsensitive);
}

bool TnvDBConnection::PSIsFieldUnicode(const QString& ATableName, const QString& AFieldName) {
    const QString key = ATableName + QLatin1Char('|') + AFieldName;
    const auto cached = FFieldTypeCache.find(key);
    if (cached != FFieldTypeCache.end())
        return cached->second == ftiUnicode;
    const TnvFieldInfo* field = GetTableInfo(*this, ATableName).FindField(AFieldName);
    const TnvFieldTypeInfo info = field && field->IsUnicode() ? ftiUnicode : ftiNormal;
    FFieldTypeCache[key] = info;
    FFieldTypeCache[QStringLiteral(".|") + AFieldName] = info;
    return info == ftiUnicode;
}

QString TnvDBConnection::PSUnicodeStringPrefix() const {
    return PSUnicodeEnabled() ? QStringLiteral("N") : QString();
}

QString TnvDBConnection::PSSessionName() const {
    if (!FDatabaseName.isEmpty())
        return QStringLiteral("dbx.") + FDatabaseName;
    return QStringLiteral("%1").arg(quintptr(this), 4, 16, QLatin1Char('0')).toUpper();
}

QString TnvDBConnection::PSEncodeDateTime(TDateTime AValue) const {
    return FormatDateTimeText(dateTimeFormat(FQueryMode), AValue);
}

QString TnvDBConnection::PSEncodeDate(TDateTime AValue) const {
    return FormatDateTimeText(dateFormat(FQueryMode), AValue);
}

Variant TnvDBConnection::PSPropertyValueByName(const QString& AName) const {
    const QString name = AName.toCaseFolded();
    if (name == QLatin1String("aliasname"))
        return Variant(FAliasName);
    if (name == QLatin1String("name"))
        return Variant(FName);
    if (name == QLatin1String("databasename"))
        return Variant(FDatabaseName);
    if (name == QLatin1String("defaultsystemid"))
        return Variant(FDefaultSystemID);
    if (name == QLatin1String("autoreaddatastructure"))
        return Variant(FAutoReadDataStructure);
    if (name == QLatin1String("connected"))
        return Variant(PSGetConnected());
    if (name == QLatin1String("systemid"))
        return Variant(FSystemID);
    return {};
}

// ---------------------------------------------------------------------------------------
// delete flags

void TnvDBConnection::ReadDeleteFlags() {
    FDeleteFlagsByPrefix.clear();
    FDeleteFlagsByTable.clear();
    if (FAutoReadDataStructure)
        ReadDeleteFlagsFromTableInfo();
    else
        ReadDeleteFlagsFromPragma();
}

// The descriptions are fetched, not read anew: the flags may be loaded on demand while a
// write helper holds the description of its table.
void TnvDBConnection::ReadDeleteFlagsFromTableInfo() {
    QStringList tables;
    PSGetTableNames(tables, false);
    for (const QString& table : tables) {
        if (!isFrameworkTable(table))
            continue;
        const TnvTableInfo& info = GetTableInfo(*this, table);
        const QString prefix = info.Prefix();
        TnvDeleteFlagKind kind = dfkNone;
        if (info.FieldExists(prefix + QStringLiteral("Deleted")))
            kind = dfkDeleted;
        else if (info.FieldExists(prefix + QStringLiteral("VisibleState")))
            kind = dfkVisibleState;
        AddDeleteFlag(prefix, table, kind);
    }
}

void TnvDBConnection::ReadDeleteFlagsFromPragma() {
    QStringList tables;
    PSGetTableNames(tables, false);
    for (const QString& table : tables) {
        const auto fields =
            PSOpenQuery(QStringLiteral("PRAGMA table_info('%1')").arg(table), nullptr, false, true);
        for (; !fields->Eof(); fields->Next()) {
            const QString name = fields->FieldByName(QStringLiteral("name")).AsString();
            const QString tail = name.mid(3);
            if (tail.compare(QLatin1String("Deleted"), Qt::CaseInsensitive) == 0)
                AddDeleteFlag(name.left(3), table, dfkDeleted);
            else if (tail.compare(QLatin1String("VisibleState"), Qt::CaseInsensitive) == 0)
                AddDeleteFlag(name.left(3), table, dfkVisibleState);
        }
    }
}

// the first table of a prefix decides for the prefix
void TnvDBConnection::AddDeleteFlag(const QString& APrefix, const QString& ATableName,
                                    TnvDeleteFlagKind AKind) {
    if (!APrefix.isEmpty())
        FDeleteFlagsByPrefix.emplace(APrefix, AKind);
    FDeleteFlagsByTable[ATableName] = AKind;
}

void TnvDBConnection::UpdateDeleteState(const QString& APrefix, const QString& ATableName,
                                        TnvDeleteFlagKind ADelete) {
    FDeleteFlagsByPrefix[APrefix] = ADelete;
    FDeleteFlagsByTable[ATableName] = ADelete;
}

void TnvDBConnection::LoadDeleteFlagsOnDemand() {
    if (FDeleteFlagsByPrefix.empty() && FDeleteFlagsByTable.empty() && !FPreventDeleteFieldHandling &&
        PSGetConnected())
        ReadDeleteFlags();
}

TnvDeleteFlagKind TnvDBConnection::PSGetDeleteFlagKindByPrefix(const QString& APrefix) {
    LoadDeleteFlagsOnDemand();
    const auto found = FDeleteFlagsByPrefix.find(APrefix);
    return found == FDeleteFlagsByPrefix.end() ? dfkNone : found->second;
}

TnvDeleteFlagKind TnvDBConnection::PSGetDeleteFlagKindByTableName(const QString& ATableName) {
    LoadDeleteFlagsOnDemand();
    const auto found = FDeleteFlagsByTable.find(ATableName);
    return found == FDeleteFlagsByTable.end() ? dfkNone : found->second;
}

// ---------------------------------------------------------------------------------------
// system identity and replication

void TnvDBConnection::ReadSystemInfo() {
    DebugLog(TraceLevel, QStringLiteral("TnvDBConnection.ReadSystemInfo: start"));
    EnsureConnected();
    if (OnGetSystemID) {
        DebugLog(TraceLevel, QStringLiteral("TnvDBConnection.ReadSystemInfo: asking OnGetSystemID"));
        FDefaultSystemID = OnGetSystemID(*this);
    }
    if (FDefaultSystemID > 0) {
        DebugLog(TraceLevel, QStringLiteral("TnvDBConnection.ReadSystemInfo: default system id %d"),
                 {FDefaultSystemID});
        FSystemID = FDefaultSystemID;
        return;
    }
    if (!PSTableExists(QStringLiteral("sysSystems"), true)) {
        DebugLog(TraceLevel, QStringLiteral("TnvDBConnection.ReadSystemInfo: no table sysSystems"));
        FSystemID = 0;
        return;
    }
    DebugLog(TraceLevel, QStringLiteral("TnvDBConnection.ReadSystemInfo: reading sysSystems"));
    const auto row =
        PSOpenQuery(QStringLiteral("SELECT * FROM sysSystems WHERE SYSMySystem = 'J'"), nullptr, false, true);
    if (row->Eof()) {
        DebugLog(TraceLevel, QStringLiteral("no current system found: system id will be set to zero!!"));
        FSystemID = 0;
        FSystemName = QStringLiteral("Default System");
        FIsNotebook = false;
        FIsActive = false;
        return;
    }
    ApplySystemRow(*row);
    DebugLog(TraceLevel, QStringLiteral("TnvDBConnection.ReadSystemInfo: system %d (%s)"),
             {FSystemID, FSystemName});
}

// The flags are read from SYSIsNotebook and SYSIsActive, which the table does not have (its
// columns are SYSNotebook and SYSActive): both flags read false, and other programs of the
// framework rely on exactly that.
void TnvDBConnection::ApplySystemRow(TnvDataSet& ARow) {
    FSystemID = ARow.FieldByName(QStringLiteral("SYSID")).AsInteger();
    FSystemName = textOf(ARow, QStringLiteral("SYSName"));
    FIsNotebook = readsAsYes(ARow, QStringLiteral("SYSIsNotebook"));
    FIsActive = readsAsYes(ARow, QStringLiteral("SYSIsActive"));
    FSystemGUID = textOf(ARow, QStringLiteral("SYSGUID"));
}

// More than one live system means that the database takes part in a replication.
void TnvDBConnection::CheckReplication() {
    FReplicationActive = false;
    if (!PSTableExists(QStringLiteral("sysSystems")))
        return;
    const QString sql =
        QStringLiteral("SELECT Count(*) As Anz FROM sysSystems WHERE (SYSDeleteTimeStamp Is Null) "
                       "OR (SYSDeleteTimeStamp < %1)")
            .arg(PSEncodeDate(Clock::todayDate()));
    FReplicationActive = PSQueryValue(sql, Variant(0), nullptr, true).toInt64() > 1;
}

bool TnvDBConnection::PSShallReplicate(const QString& ATableName, TnvReplicationMode AWantReplicate) const {
    if (FReplicationIgnoreTables.contains(ATableName.trimmed(), Qt::CaseInsensitive))
        return false;
    switch (AWantReplicate) {
    case rmAuto:
        return FReplicationActive;
    case rmReplicate:
        return true;
    default:
        return false;
    }
}

bool TnvDBConnection::PSReplicate(const QString& ATableName) const {
    return PSShallReplicate(ATableName, rmAuto);
}

bool TnvDBConnection::PSSaveChangeBlock(const TReplicationBaseClass& ARep) {
    return TRepChangeBlockWriter::Save(PSReplicationDatabase(), ARep, FNextNumberCache);
}

// ---------------------------------------------------------------------------------------
// IDs

qint64 TnvDBConnection::PSGenID(const QString& ATableName, int ASystem, int ACount) {
    const int system = ASystem <= 0 ? FSystemID : ASystem;
    return IssueNumbers(ATableName, system, ACount);
}

// The counter in sysTableIDs grows by ACount; the first number of the range is combined with
// the system, so that systems that replicate with each other never issue the same ID.
qint64 TnvDBConnection::IssueNumbers(const QString& ATableName, int ASystem, int ACount) {
    const int system = qMax(ASystem, 1);
    const int count = qMax(ACount, 1);
    const QString tableName = ATableName.trimmed();
    TnvParams lookup;
    lookup.AddValue(Variant(tableName));
    // only a missing row starts a counter: a row whose count is empty goes on from 0, so that
    // the table never gets a second row
    bool found = false;
    qint64 first = 1;
    {
        const auto current = PSOpenQuery(
            QStringLiteral("SELECT TIDCount FROM sysTableIDs WHERE TIDTableName=?"), &lookup, false, true);
        found = !current->Eof();
        if (found)
            first = current->Fields(0).AsLargeInt() + 1;
    }
    const QString statement =
        found ? QStringLiteral("UPDATE sysTableIDs SET TIDCount=? WHERE TIDTableName=?")
              : QStringLiteral("INSERT INTO sysTableIDs (TIDCount, TIDTableName) VALUES(?, ?)");
    TnvParams params;
    params.AddValue(Variant(first + count - 1));
    params.AddValue(Variant(tableName));
    PSExecuteStatement(statement, &params, nullptr, false, true);
    return first + SystemRange * system;
}

} // namespace norvik
