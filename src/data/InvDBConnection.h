#pragma once

#include "DBConnectionTypes.h"
#include "TServerQueryMode.h"
#include "TnvDataSet.h"
#include "TnvTableInfoList.h"
#include "Variant.h"

#include <QString>
#include <QStringList>
#include <functional>
#include <initializer_list>
#include <memory>

namespace norvik {

class TReplicationBaseClass;

// called once per row of a result
using TnvRecordCallback = std::function<void(TnvDataSet&)>;

// The only road to the database. Upper layers hold this interface, never a driver object:
// the dialect, the soft-delete filter, transaction nesting, table metadata and the ID source
// stay behind it. Operations that only a server database can answer give neutral values.
//
// "Params" of the ...Ex operations are arguments of the statement text's format ("%s",
// "%d"); "AParams" are the positional parameters bound to its "?" marks.
class InvDBConnection {
public:
    virtual ~InvDBConnection() = default;

    virtual void PSAssign(const InvDBConnection& Source, const QString& ADatabaseName) = 0;
    // a new connection to ADatabaseName (empty: the same database), not yet connected
    virtual std::unique_ptr<InvDBConnection> PSClone(const QString& ADatabaseName) const = 0;
    virtual void PSConnect(bool Connect) = 0;
    virtual bool PSGetConnected() const = 0;
    // a clone for a worker thread, kept in the pool of the connection it came from
    virtual InvDBConnection& PSGetPooledClone() = 0;
    virtual void PSReleaseToPool() = 0;

    virtual void PSStartTransaction() = 0;
    virtual void PSEndTransaction(bool Commit) = 0;
    virtual bool PSInTransaction() const = 0;

    // runs the statement; a requested ResultSet receives the open result
    virtual int PSExecuteStatement(const QString& ASQL, const TnvParams* AParams = nullptr,
                                   std::unique_ptr<TnvDataSet>* ResultSet = nullptr, bool RequestLive = false,
                                   bool SystemQuery = false) = 0;
    virtual std::unique_ptr<TnvDataSet> PSOpenQuery(const QString& ASQL, const TnvParams* AParams = nullptr,
                                                    bool RequestLive = false, bool SystemQuery = false) = 0;
    // with AddDelete, only rows that are not deleted softly
    virtual std::unique_ptr<TnvDataSet> PSOpenQueryEx(const QString& ASQL,
                                                      std::initializer_list<Variant> Params, bool AddDelete,
                                                      bool RequestLive = false, bool SystemQuery = false) = 0;
    // the first field of the first row; ADefault for no row, no field or NULL
    virtual Variant PSQueryValue(const QString& ASQL, const Variant& ADefault,
                                 const TnvParams* AParams = nullptr, bool SystemQuery = false) = 0;
    virtual Variant PSQueryValueEx(const QString& ASQL, std::initializer_list<Variant> Params,
                                   const Variant& ADefault, bool AddDelete, bool SystemQuery = false) = 0;
    virtual void PSFlushSchemaCache(const QString& ATableName) = 0;
    // the statement as PSOpenQueryEx would run it, not yet opened
    virtual std::unique_ptr<TnvDataSet> PSPrepareQueryEx(const QString& ASQL,
                                                         std::initializer_list<Variant> Params,
                                                         bool AddDelete, bool SystemQuery = false) = 0;

    virtual QString PSGetTablePrefix(const QString& ATableName) = 0;
    // the first of ACount new IDs; ASystem 0 or below: the connection's own system
    virtual qint64 PSGenID(const QString& ATableName, int ASystem = 0, int ACount = 1) = 0;
    virtual int PSSystemID() const = 0;
    virtual QString PSSessionName() const = 0;
    virtual QString PSAliasName() const = 0;
    virtual QString PSDatabaseName() const = 0;
    virtual void PSGetTableNames(QStringList& AList, bool ASystemTables) = 0;
    virtual bool PSTableExists(const QString& ATableName, bool ForceReloadTables = false) = 0;
    virtual TServerQueryMode PSGetQueryMode() const = 0;
    virtual qint64 PSGetDatabaseLimit() = 0;
    virtual qint64 PSGetDatabaseSize() = 0;
    virtual TnvDatabaseKind PSGetDatabaseKind() const = 0;
    virtual TnvDeleteFlagKind PSGetDeleteFlagKindByPrefix(const QString& APrefix) = 0;
    virtual TnvDeleteFlagKind PSGetDeleteFlagKindByTableName(const QString& ATableName) = 0;

    virtual bool PSReplicate(const QString& ATableName) const = 0;
    virtual bool PSShallReplicate(const QString& ATableName, TnvReplicationMode AWantReplicate) const = 0;
    // writes the block's row; raises for anything but a TRepCustomChangeBlock
    virtual bool PSSaveChangeBlock(const TReplicationBaseClass& ARep) = 0;
    virtual InvDBConnection& PSReplicationDatabase() = 0;
    virtual bool PSGetReplicationActive() const = 0;
    virtual void PSSetReplicationActive(bool AValue) = 0;

    virtual bool PSUnicodeEnabled() const = 0;
    virtual QString PSUnicodeStringPrefix() const = 0;
    virtual bool PSIsFieldUnicode(const QString& ATableName, const QString& AFieldName) = 0;
    virtual QStringList PSReplicationIgnoreTables() const = 0;

    // SQL literals of the dialect, quotes included
    virtual QString PSEncodeDateTime(TDateTime AValue) const = 0;
    virtual QString PSEncodeDate(TDateTime AValue) const = 0;

    virtual void PSForEachRecord(const QString& ASQL, const TnvRecordCallback& ACallBack,
                                 const TnvParams* AParams = nullptr) = 0;
    virtual void PSForEachRecordEx(const QString& ASQL, const TnvRecordCallback& ACallBack,
                                   std::initializer_list<Variant> Params, bool AddDelete,
                                   bool RequestLive = false, bool SystemQuery = false) = 0;
    // a published property by name; Unassigned for an unknown name
    virtual Variant PSPropertyValueByName(const QString& AName) const = 0;
    virtual TnvTableInfoList& PSGetTableInfoList() = 0;
};

} // namespace norvik
