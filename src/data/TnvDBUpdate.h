#pragma once

#include "CaseInsensitiveComparer.h"
#include "TServerQueryMode.h"

#include <QString>
#include <QStringList>
#include <exception>
#include <functional>
#include <unordered_map>

namespace norvik {

class InvDBConnection;

enum TStatusCode { scNone, scAnalyse, scUpdate, scCreateTable, scUpdateTable, scDeleteTable };

// how a changed field is brought to its new definition where the dialect allows a choice
enum TmsChangeFields { cfAuto, cfChangeExtract };

// Brings a live database to the structure of a definition text. It writes the database's
// actual structure in the same text form, walks both texts side by side in the order of the
// table names, and runs SQL only for what differs: missing tables and indexes are created,
// changed fields brought to their new definition. By default nothing is ever removed. SQLite
// cannot change a column in place, so a table with a changed or missing field is rebuilt
// under a temporary name and its rows copied across.
class TnvDBUpdate {
public:
    using TOnStatus = std::function<void(TnvDBUpdate& Sender, const QString& Table, const QString& Status,
                                         TStatusCode StatusCode)>;
    // setting Handled keeps the statement from running
    using TOnRunSQL = std::function<void(TnvDBUpdate& Sender, const QString& Statement, bool& Handled)>;
    using TOnError = std::function<void(TnvDBUpdate& Sender, const QString& ErrorMessage, int ErrorCode)>;
    using TExceptionEvent = std::function<void(TnvDBUpdate& Sender, const std::exception& E)>;
    using TnvOnProtocolLog = std::function<void(int Level, const QString& Text)>;

    bool AutoDeleteNewFile = false;
    InvDBConnection* Connection = nullptr;
    // the target text; when empty, the text of FileName
    QStringList Structure;
    QString FileName;
    bool UseTransactions = false;
    QStringList IgnorePrefixes{QStringLiteral("dbo."), QStringLiteral("dba."), QStringLiteral("sys.")};
    bool IgnoreAllPrefixes = true;
    // masks with "*" and "?"; when not empty, only matching tables are looked at
    QStringList Tables;
    QStringList IgnoreTables{QStringLiteral("rs_lastcommit"), QStringLiteral("rs_threads"),
                             QStringLiteral("dtproperties"),  QStringLiteral("sysconstraints"),
                             QStringLiteral("sysalternates"), QStringLiteral("syssegments"),
                             QStringLiteral("information*")};
    // nothing that the target lacks is removed: no table, field or index
    bool ProtectFromDelete = true;
    TmsChangeFields ChangeFields = cfAuto;
    bool CompareIndex = true;
    // where the protocol is saved at the end of a comparison, if set
    QString LogFile;
    // changes of blob and memo fields are applied too
    bool AllowDropBlob = false;

    TOnStatus OnStatus;
    TOnRunSQL OnRunSQL;
    TOnError OnError;
    TExceptionEvent OnException;
    TnvOnProtocolLog OnProtocolLog;

    // the whole update; AThisTables, if given, restricts it to those tables
    void PerformCheck(const QStringList* AThisTables = nullptr);

    // the database's tables to be compared, without schema prefixes, in the walk's order
    void GetTableNames(QStringList& AList);
    // the block of one table; empty for a table that does not exist or has no fields
    void GetTableStructure(const QString& ATableName, QString& AText);
    // the blocks of all tables in AList, an empty line behind each
    void GetDBStructure(const QStringList& AList, QString& AText);

    int ExportFormatVersion() const { return FExportFormatVersion; }
    // every statement run and every step taken; it grows across checks
    const QStringList& Protocol() const { return FLogList; }

private:
    using NameIndex = std::unordered_map<QString, int, CaseInsensitiveComparer, CaseInsensitiveComparer>;

    QStringList FLogList;
    TServerQueryMode FQueryMode = qsmSQLite;
    int FExportFormatVersion = 0;
    QStringList FTarget;
    QStringList FDatabase;
    int FTargetIndex = 0;
    int FDBIndex = 0;
    // of the table being updated: field and index name to the line in FDatabase
    NameIndex FDBFields;
    NameIndex FDBIndexes;
    QString FDBKeyField;

    InvDBConnection& Conn();
    bool WalkTargetFields(const std::function<bool(const QString&, const QString&)>& AVisit);
    bool LoadTarget();
    void FilterTables(QStringList& ATables, const QStringList& AThisTables) const;
    void Compare();
    void CompareWithTransaction();
    void CompareTables(const QString& ATargetTable, const QString& ADBTable);
    void Status(const QString& ATable, const QString& AStatus, TStatusCode ACode);
    void Log(const QString& AText);
    void RunSQL(const QString& AStatement);
    void ReportError(const QString& AMessage, const QString& AName, const QString& ATable, int ACode);

    void CreateTable();
    void CreateTableFromTarget(const QString& ATable, QStringList* ACopyColumns);
    void CreateTargetIndexes(const QString& ATable);
    void UpdateTable();
    void ReadDatabaseBlock();
    void RebuildStep(const QString& ATable);
    bool RebuildDue();
    void Rebuild(const QString& ATable);
    void InPlaceStep(const QString& ATable);
    void ChangeFieldInPlace(const QString& ATable, const QString& AName, const QString& ASpec,
                            const QString& ADBSpec);
    void ChangeMemoField(const QString& ATable, const QString& AName, const QString& ASpec, bool AToMemo);
    void GenericStep(const QString& ATable);
    void IndexStep(const QString& ATable);
    void DropIndexesWithField(const QString& ATable, const QString& AField);

    bool SpecsEqual(const QString& ATargetSpec, const QString& ADBSpec) const;
    QString DBSpec(const QString& AField) const;
    QString DBIndexRest(const QString& AIndex) const;
    QStringList DBIndexNames() const;
    QString AddColumnStatement(const QString& ATable, const QString& AName, const QString& ASpec) const;
};

} // namespace norvik
