#include "TnvDBUpdate.h"

#include "AnsiCodePage.h"
#include "Clock.h"
#include "DBExceptions.h"
#include "InvDBConnection.h"
#include "SQLiteStructureReader.h"
#include "StructureText.h"
#include "TnvDBUpdateSQL.h"

#include <QFile>
#include <QStringConverter>
#include <algorithm>

namespace norvik {

namespace {

const QString Separator = QStringLiteral(", \r\n");
// the name under which SQLite keeps a table while it is rebuilt
const QString RebuildSuffix = QStringLiteral("__");
// the helper column of a field that is changed through a copy
const QString HelperSuffix = QStringLiteral("ZZZZZ");
const QString MemoHelperPrefix = QStringLiteral("tmp____");
const QString MemoTransaction = QStringLiteral("tmp__restructure_memo");

// "*" for any run of characters, "?" for one, letters compared ignoring case
bool MatchesMask(QStringView AName, QStringView AMask) {
    if (AMask.isEmpty())
        return AName.isEmpty();
    if (AMask.front() == u'*') {
        for (qsizetype skip = 0; skip <= AName.size(); ++skip) {
            if (MatchesMask(AName.mid(skip), AMask.mid(1)))
                return true;
        }
        return false;
    }
    if (AName.isEmpty())
        return false;
    if (AMask.front() != u'?' && AMask.front().toUpper() != AName.front().toUpper())
        return false;
    return MatchesMask(AName.mid(1), AMask.mid(1));
}

bool MatchesAny(const QString& AName, const QStringList& AMasks) {
    return std::any_of(AMasks.begin(), AMasks.end(),
                       [&AName](const QString& mask) { return MatchesMask(AName, mask); });
}

struct SplitLine {
    QString name;
    QString rest;
};

// a field or index line, trimmed, cut into its name and the part behind the name
SplitLine SplitDefinitionLine(const QString& ALine) {
    QString rest = StructureText::TrimControl(ALine).mid(2);
    const QString name = StructureText::FetchColumn(rest);
    return {name, rest};
}

QChar TypeLetter(const QString& ASpec) {
    return ASpec.isEmpty() ? QChar() : ASpec.at(0).toUpper();
}

QString Column(const QString& ASpec, int AIndex) {
    QString rest = ASpec;
    QString column;
    for (int i = 0; i <= AIndex; ++i)
        column = StructureText::FetchColumn(rest);
    return column;
}

// the database's structure as a target text of the first format versions states it
QString CutToOldFormat(const QString& ASpec) {
    const QString key = Column(ASpec, 2);
    QString result = Column(ASpec, 0) + u';' + Column(ASpec, 1);
    if (!key.isEmpty())
        result += u';' + key;
    return result;
}

bool IsInPlaceDialect(TServerQueryMode AMode) {
    return AMode == qsmMSSQL || AMode == qsmSYBASE || AMode == qsmSQLANYWHERE || AMode == qsmMySQL ||
           AMode == qsmPostGre;
}

bool IsKeyGroupDialect(TServerQueryMode AMode) {
    return AMode == qsmMSAccess || AMode == qsmMSSQL || AMode == qsmSYBASE || AMode == qsmSQLANYWHERE;
}

QString ReadTextFile(const QString& AFileName) {
    QFile file(AFileName);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray bytes = file.readAll();
    if (const auto encoding = QStringConverter::encodingForData(bytes))
        return QStringDecoder(*encoding).decode(bytes);
    return platform::AnsiCodePage::decode(bytes);
}

} // namespace

InvDBConnection& TnvDBUpdate::Conn() {
    if (!Connection)
        throw EnvDBException(QStringLiteral("The structure update has no connection."));
    return *Connection;
}

// ---------------------------------------------------------------------------------------
// the check as a whole

void TnvDBUpdate::PerformCheck(const QStringList* AThisTables) {
    FExportFormatVersion = 0;
    try {
        FQueryMode = Conn().PSGetQueryMode();
        if (!LoadTarget())
            return;
        FExportFormatVersion = StructureText::ReadExportFormatVersion(FTarget);
        const QString versionText = QStringLiteral("ExportFormatVersion = %1").arg(FExportFormatVersion);
        Status(QString(), versionText, scNone);
        Log(versionText);
        QStringList tables;
        GetTableNames(tables);
        if (AThisTables)
            FilterTables(tables, *AThisTables);
        QString text;
        GetDBStructure(tables, text);
        FDatabase = StructureText::SplitLines(text);
        if (UseTransactions)
            CompareWithTransaction();
        else
            Compare();
    } catch (const std::exception& error) {
        if (!OnException)
            throw;
        OnException(*this, error);
    }
}

bool TnvDBUpdate::LoadTarget() {
    if (!Structure.isEmpty()) {
        FTarget = StructureText::SplitLines(StructureText::JoinLines(Structure));
        return true;
    }
    if (FileName.isEmpty() || !QFile::exists(FileName))
        return false;
    FTarget = StructureText::SplitLines(ReadTextFile(FileName));
    if (AutoDeleteNewFile)
        QFile::remove(FileName);
    return true;
}

void TnvDBUpdate::FilterTables(QStringList& ATables, const QStringList& AThisTables) const {
    for (qsizetype i = ATables.size() - 1; i >= 0; --i) {
        if (!AThisTables.contains(ATables.at(i), Qt::CaseInsensitive))
            ATables.removeAt(i);
    }
}

void TnvDBUpdate::CompareWithTransaction() {
    Conn().PSStartTransaction();
    try {
        Compare();
        Conn().PSEndTransaction(true);
    } catch (const std::exception& error) {
        try {
            Conn().PSEndTransaction(false);
        } catch (const std::exception&) {
            // a rebuild may already have ended the transaction; the first failure is the one to report
        }
        throw EnvDBException(QStringLiteral("Update of the data structure failed. (") +
                             QString::fromUtf8(error.what()) + u')');
    }
}

void TnvDBUpdate::Compare() {
    const QString rule(70, u'-');
    Log(rule);
    Log(QStringLiteral("analysing database at ") +
        Clock::now().toString(QStringLiteral("dd.MM.yyyy-HH:mm:ss")));
    Log(rule);
    FTargetIndex = 0;
    FDBIndex = 0;
    for (;;) {
        FTargetIndex = StructureText::NextTable(FTarget, FTargetIndex);
        FDBIndex = StructureText::NextTable(FDatabase, FDBIndex);
        if (FTargetIndex >= FTarget.size() && FDBIndex >= FDatabase.size())
            break;
        const QString targetTable = StructureText::TableName(FTarget, FTargetIndex);
        const QString dbTable = StructureText::TableName(FDatabase, FDBIndex);
        Conn().PSFlushSchemaCache(targetTable);
        CompareTables(targetTable, dbTable);
        Conn().PSFlushSchemaCache(targetTable);
    }
    if (!LogFile.isEmpty()) {
        QFile file(LogFile);
        if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
            file.write(platform::AnsiCodePage::encode(StructureText::JoinLines(FLogList)));
    }
}

void TnvDBUpdate::CompareTables(const QString& ATargetTable, const QString& ADBTable) {
    const int order = StructureText::CompareNames(ATargetTable, ADBTable);
    if (order < 0) {
        Status(ATargetTable, QStringLiteral("create table ") + ATargetTable, scCreateTable);
        CreateTable();
    } else if (order == 0) {
        Status(ATargetTable, QStringLiteral("update table ") + ATargetTable, scUpdateTable);
        UpdateTable();
    } else {
        if (!ProtectFromDelete) {
            Status(ADBTable, QStringLiteral("remove table ") + ADBTable, scDeleteTable);
            RunSQL(QStringLiteral("DROP TABLE ") + ADBTable);
        }
        ++FDBIndex;
    }
}

void TnvDBUpdate::Status(const QString& ATable, const QString& AStatus, TStatusCode ACode) {
    if (OnStatus)
        OnStatus(*this, ATable, AStatus, ACode);
}

void TnvDBUpdate::Log(const QString& AText) {
    FLogList.append(AText);
    if (OnProtocolLog)
        OnProtocolLog(5, AText);
}

void TnvDBUpdate::RunSQL(const QString& AStatement) {
    if (AStatement.isEmpty())
        return;
    try {
        bool handled = false;
        if (OnRunSQL)
            OnRunSQL(*this, AStatement, handled);
        if (!handled)
            Conn().PSExecuteStatement(AStatement, nullptr, nullptr, false, true);
        Log(AStatement);
    } catch (const std::exception& error) {
        if (!OnException)
            throw;
        OnException(*this, error);
    }
}

void TnvDBUpdate::ReportError(const QString& AMessage, const QString& AName, const QString& ATable,
                              int ACode) {
    if (OnError)
        OnError(*this, AMessage.arg(AName, ATable), ACode);
}

// ---------------------------------------------------------------------------------------
// the database's structure as text

void TnvDBUpdate::GetTableNames(QStringList& AList) {
    Conn().PSGetTableNames(AList, false);
    for (qsizetype i = AList.size() - 1; i >= 0; --i) {
        const QString original = AList.at(i);
        QString name = original;
        if (IgnoreAllPrefixes)
            name = name.mid(name.lastIndexOf(u'.') + 1);
        for (const QString& prefix : IgnorePrefixes)
            name.remove(prefix.contains(u'.') ? prefix : prefix + u'.', Qt::CaseInsensitive);
        bool remove = !Tables.isEmpty() && !MatchesAny(name, Tables);
        if (!remove)
            remove = MatchesAny(name, IgnoreTables);
        if (MatchesMask(original, u"sys.*") || MatchesMask(original, u"INFORMATION_SCHEMA.*"))
            remove = true;
        AList[i] = name;
        if (remove)
            AList.removeAt(i);
    }
    // the walk over both texts needs the order of its own name comparison
    std::sort(AList.begin(), AList.end(), [](const QString& left, const QString& right) {
        return StructureText::CompareNames(left, right) < 0;
    });
}

void TnvDBUpdate::GetTableStructure(const QString& ATableName, QString& AText) {
    AText.clear();
    // the list of tables may be older than the last structure change
    if (!Conn().PSTableExists(ATableName, true))
        return;
    QStringList lines{QStringLiteral("T:") + ATableName.mid(ATableName.indexOf(u'.') + 1)};
    lines += SQLiteStructureReader::FieldLines(Conn(), ATableName);
    lines += SQLiteStructureReader::IndexLines(Conn(), ATableName);
    if (lines.size() < 2)
        return;
    AText = StructureText::JoinLines(lines);
}

void TnvDBUpdate::GetDBStructure(const QStringList& AList, QString& AText) {
    AText.clear();
    Status(QString(), QStringLiteral("analysing database"), scAnalyse);
    for (const QString& table : AList) {
        Status(table, QStringLiteral("analysing table ") + table, scAnalyse);
        QString block;
        GetTableStructure(table, block);
        // the lone CR becomes the empty line between two blocks
        AText += block + QStringLiteral("\r\r\n");
    }
    Status(QString(), QStringLiteral(" "), scAnalyse);
}

// ---------------------------------------------------------------------------------------
// creating a table

void TnvDBUpdate::CreateTable() {
    const QString table = StructureText::TableName(FTarget, FTargetIndex);
    ++FTargetIndex;
    FDBFields.clear();
    CreateTableFromTarget(table, nullptr);
}

// Hands the field lines of the target's current block to AVisit, from FTargetIndex on and
// passing over empty ones. False when AVisit stopped the walk; FTargetIndex then stands on
// that field's line, otherwise behind the block's last field.
bool TnvDBUpdate::WalkTargetFields(const std::function<bool(const QString&, const QString&)>& AVisit) {
    FTargetIndex = StructureText::SkipToRelevant(FTarget, FTargetIndex);
    for (; FTargetIndex < FTarget.size() && StructureText::IsKind(FTarget.at(FTargetIndex), u'F');
         ++FTargetIndex) {
        const SplitLine field = SplitDefinitionLine(FTarget.at(FTargetIndex));
        if (field.name.isEmpty() && field.rest.isEmpty())
            continue;
        if (!AVisit(field.name, field.rest))
            return false;
    }
    return true;
}

// The target's block from the current line on: the table with its fields, then its indexes.
// With ACopyColumns, the table is being rebuilt: the fields that the database has go into
// the list, and those that only the database has are kept if ProtectFromDelete is set.
void TnvDBUpdate::CreateTableFromTarget(const QString& ATable, QStringList* ACopyColumns) {
    QStringList columns;
    QStringList keys;
    QStringList targetFields;
    WalkTargetFields([&](const QString& name, const QString& rest) {
        QString column = u' ' + name + TnvDBUpdateSQL::ColumnDefinition(rest, FQueryMode);
        if (TnvDBUpdateSQL::IsKeySpec(rest)) {
            keys.append(name);
            if (FQueryMode == qsmSQLite)
                column += QStringLiteral(" PRIMARY KEY");
        }
        columns.append(column);
        targetFields.append(name);
        if (ACopyColumns && FDBFields.count(name) > 0)
            ACopyColumns->append(name);
        return true;
    });
    if (ACopyColumns && ProtectFromDelete) {
        QList<std::pair<int, QString>> kept;
        for (const auto& [name, line] : FDBFields) {
            if (!targetFields.contains(name, Qt::CaseInsensitive))
                kept.append({line, name});
        }
        std::sort(kept.begin(), kept.end());
        for (const auto& [line, name] : kept) {
            columns.append(u' ' + name + TnvDBUpdateSQL::ColumnDefinition(DBSpec(name), FQueryMode));
            ACopyColumns->append(name);
        }
    }
    if (keys.size() > 1 && IsKeyGroupDialect(FQueryMode))
        columns.append(QStringLiteral("PRIMARY KEY (") + keys.join(QStringLiteral(", ")) + u')');
    RunSQL(QStringLiteral("CREATE TABLE ") + ATable + QStringLiteral("(\r\n") + columns.join(Separator) +
           u')');
    CreateTargetIndexes(ATable);
}

void TnvDBUpdate::CreateTargetIndexes(const QString& ATable) {
    FTargetIndex = StructureText::SkipToRelevant(FTarget, FTargetIndex);
    for (; FTargetIndex < FTarget.size() && StructureText::IsKind(FTarget.at(FTargetIndex), u'I');
         ++FTargetIndex) {
        SplitLine index = SplitDefinitionLine(FTarget.at(FTargetIndex));
        const QString kind = StructureText::FetchColumn(index.rest);
        RunSQL(TnvDBUpdateSQL::CreateIndex(ATable, index.name, kind, index.rest, FQueryMode));
    }
}

// ---------------------------------------------------------------------------------------
// updating a table

void TnvDBUpdate::UpdateTable() {
    const QString table = StructureText::TableName(FTarget, FTargetIndex);
    ++FTargetIndex;
    ++FDBIndex;
    FQueryMode = Conn().PSGetQueryMode();
    ReadDatabaseBlock();
    if (ChangeFields != cfAuto)
        GenericStep(table);
    else if (FQueryMode == qsmSQLite)
        RebuildStep(table);
    else if (IsInPlaceDialect(FQueryMode))
        InPlaceStep(table);
    else
        GenericStep(table);
    if (CompareIndex)
        IndexStep(table);
}

void TnvDBUpdate::ReadDatabaseBlock() {
    FDBFields.clear();
    FDBIndexes.clear();
    FDBKeyField.clear();
    FDBIndex = StructureText::SkipToRelevant(FDatabase, FDBIndex);
    for (; FDBIndex < FDatabase.size() && StructureText::IsKind(FDatabase.at(FDBIndex), u'F'); ++FDBIndex) {
        const SplitLine field = SplitDefinitionLine(FDatabase.at(FDBIndex));
        FDBFields[field.name] = FDBIndex;
        if (TnvDBUpdateSQL::IsKeySpec(field.rest))
            FDBKeyField = field.name;
    }
    FDBIndex = StructureText::SkipToRelevant(FDatabase, FDBIndex);
    for (; FDBIndex < FDatabase.size() && StructureText::IsKind(FDatabase.at(FDBIndex), u'I'); ++FDBIndex)
        FDBIndexes[SplitDefinitionLine(FDatabase.at(FDBIndex)).name] = FDBIndex;
}

QString TnvDBUpdate::DBSpec(const QString& AField) const {
    const auto found = FDBFields.find(AField);
    return found == FDBFields.end() ? QString() : SplitDefinitionLine(FDatabase.at(found->second)).rest;
}

// in the order the database lists them
QStringList TnvDBUpdate::DBIndexNames() const {
    QList<std::pair<int, QString>> indexes;
    for (const auto& [name, line] : FDBIndexes)
        indexes.append({line, name});
    std::sort(indexes.begin(), indexes.end());
    QStringList names;
    for (const auto& [line, name] : indexes)
        names.append(name);
    return names;
}

QString TnvDBUpdate::DBIndexRest(const QString& AIndex) const {
    const auto found = FDBIndexes.find(AIndex);
    return found == FDBIndexes.end() ? QString() : SplitDefinitionLine(FDatabase.at(found->second)).rest;
}

bool TnvDBUpdate::SpecsEqual(const QString& ATargetSpec, const QString& ADBSpec) const {
    const QString dbSpec = FExportFormatVersion < 2 ? CutToOldFormat(ADBSpec) : ADBSpec;
    QString targetSpec = ATargetSpec;
    if (FQueryMode == qsmPostGre && TypeLetter(targetSpec) == u'S' &&
        Column(targetSpec, 1) == QLatin1String("255"))
        targetSpec =
            Column(targetSpec, 0) + QStringLiteral(";254") + targetSpec.mid(targetSpec.indexOf(u';', 2));
    if (targetSpec.compare(dbSpec, Qt::CaseInsensitive) == 0)
        return true;
    const QChar target = TypeLetter(targetSpec);
    const QChar database = TypeLetter(dbSpec);
    // blob and memo fields are left alone unless allowed; the database's type is not asked
    if (!AllowDropBlob && (target == u'B' || target == u'M') && !(target == u'M' && database == u'M'))
        return true;
    // a text field never shrinks
    return target == u'S' && database == u'S' && Column(targetSpec, 1).toInt() < Column(dbSpec, 1).toInt();
}

void TnvDBUpdate::RebuildStep(const QString& ATable) {
    if (RebuildDue())
        Rebuild(ATable);
}

// Walks the target's fields up to the first that the database lacks or has otherwise.
// Without such a field the target stands behind its field lines.
bool TnvDBUpdate::RebuildDue() {
    // the walk stops at the first field that the database lacks or has otherwise
    return !WalkTargetFields([&](const QString& name, const QString& rest) {
        return FDBFields.count(name) > 0 && SpecsEqual(rest, DBSpec(name));
    });
}

void TnvDBUpdate::Rebuild(const QString& ATable) {
    const QString oldTable = ATable + RebuildSuffix;
    if (!UseTransactions)
        RunSQL(QStringLiteral("BEGIN TRANSACTION"));
    try {
        RunSQL(QStringLiteral("ALTER TABLE %1 RENAME TO %2").arg(ATable, oldTable));
        // the renamed table keeps its indexes, whose names would collide with the new ones
        for (const QString& name : DBIndexNames())
            RunSQL(QStringLiteral("DROP INDEX IF EXISTS ") + name);
        FDBIndexes.clear();
        FTargetIndex = StructureText::PreviousTable(FTarget, FTargetIndex) + 1;
        QStringList copyColumns;
        CreateTableFromTarget(ATable, &copyColumns);
        const QString columns = copyColumns.join(QStringLiteral(", "));
        RunSQL(QStringLiteral("INSERT INTO %1 (%2) SELECT %2 FROM %3").arg(ATable, columns, oldTable));
        RunSQL(QStringLiteral("DROP TABLE ") + oldTable);
        RunSQL(QStringLiteral("END TRANSACTION"));
    } catch (const std::exception&) {
        if (!UseTransactions)
            RunSQL(QStringLiteral("ROLLBACK"));
        throw;
    }
}

QString TnvDBUpdate::AddColumnStatement(const QString& ATable, const QString& AName,
                                        const QString& ASpec) const {
    const QString definition = TnvDBUpdateSQL::ColumnDefinition(ASpec, FQueryMode);
    if (FQueryMode == qsmMySQL)
        return QStringLiteral("ALTER TABLE %1 ADD %2 %3;").arg(ATable, AName, definition.trimmed());
    return QStringLiteral("ALTER TABLE ") + ATable + QStringLiteral("\r\n  ADD ") + AName + definition;
}

void TnvDBUpdate::InPlaceStep(const QString& ATable) {
    QStringList targetFields;
    WalkTargetFields([&](const QString& name, const QString& rest) {
        targetFields.append(name);
        if (FDBFields.count(name) == 0) {
            // a table with a visibility state gets no delete flag besides it
            const bool deletedFlag = name.endsWith(QLatin1String("Deleted"), Qt::CaseInsensitive);
            const QString visibleState = name.chopped(7) + QStringLiteral("VisibleState");
            if (!deletedFlag || FDBFields.count(visibleState) == 0)
                RunSQL(AddColumnStatement(ATable, name, rest));
        } else if (!SpecsEqual(rest, DBSpec(name))) {
            ChangeFieldInPlace(ATable, name, rest, DBSpec(name));
        }
        return true;
    });
    if (ProtectFromDelete)
        return;
    for (const auto& [name, line] : FDBFields) {
        if (targetFields.contains(name, Qt::CaseInsensitive))
            continue;
        if (name.compare(FDBKeyField, Qt::CaseInsensitive) == 0)
            ReportError(
                QStringLiteral(
                    "Could not delete field \"%1\" because it is the primary key\r\nin the table \"%2\""),
                name, ATable, 0);
        else
            RunSQL(QStringLiteral("ALTER TABLE ") + ATable + QStringLiteral("\r\n  DROP COLUMN ") + name);
    }
}

void TnvDBUpdate::ChangeFieldInPlace(const QString& ATable, const QString& AName, const QString& ASpec,
                                     const QString& ADBSpec) {
    if (AName.compare(FDBKeyField, Qt::CaseInsensitive) == 0) {
        ReportError(QStringLiteral(
                        "Could not change field \"%1\" because it is the primary key\r\nin the table \"%2\""),
                    AName, ATable, 1);
        return;
    }
    DropIndexesWithField(ATable, AName);
    if (FQueryMode == qsmMSSQL) {
        const QString constraint =
            Conn()
                .PSQueryValue(
                    QStringLiteral("SELECT d.name FROM sys.default_constraints d JOIN sys.columns c "
                                   "ON d.parent_object_id = c.object_id AND d.parent_column_id = c.column_id "
                                   "WHERE d.parent_object_id = OBJECT_ID('%1') AND c.name = '%2'")
                        .arg(ATable, AName),
                    Variant(QString()), nullptr, true)
                .toString();
        if (!constraint.isEmpty())
            RunSQL(QStringLiteral("ALTER TABLE %1\r\n  DROP CONSTRAINT %2").arg(ATable, constraint));
        const bool toMemo = TypeLetter(ASpec) == u'M';
        if (toMemo != (TypeLetter(ADBSpec) == u'M')) {
            ChangeMemoField(ATable, AName, ASpec, toMemo);
            return;
        }
    }
    const QString definition = TnvDBUpdateSQL::ColumnDefinition(ASpec, FQueryMode, false);
    QString clause = QStringLiteral("  ALTER COLUMN ") + AName;
    if (FQueryMode == qsmSYBASE || FQueryMode == qsmSQLANYWHERE || FQueryMode == qsmMySQL)
        clause = QStringLiteral("  MODIFY ") + AName;
    else if (FQueryMode == qsmPostGre)
        clause += QStringLiteral(" TYPE");
    RunSQL(QStringLiteral("ALTER TABLE ") + ATable + QStringLiteral("\r\n") + clause + definition);
    const QString defaultValue = Column(ASpec, 3);
    if (FQueryMode == qsmMSSQL && !defaultValue.isEmpty())
        RunSQL(QStringLiteral("ALTER TABLE %1 ADD CONSTRAINT %2 DEFAULT %3 FOR %4")
                   .arg(ATable, QStringLiteral("d") + ATable + u'_' + AName, defaultValue, AName));
}

// a change between memo and another type goes through a helper column on MSSQL
void TnvDBUpdate::ChangeMemoField(const QString& ATable, const QString& AName, const QString& ASpec,
                                  bool AToMemo) {
    const QString helper = MemoHelperPrefix + AName;
    const QString alter = QStringLiteral("ALTER TABLE ") + ATable + QStringLiteral("\r\n  ");
    const QString source = AToMemo ? QStringLiteral("CAST(%1 As TEXT)").arg(AName) : AName;
    RunSQL(QStringLiteral("BEGIN TRANSACTION ") + MemoTransaction);
    try {
        RunSQL(AddColumnStatement(ATable, helper, ASpec));
        RunSQL(QStringLiteral("UPDATE %1 SET %2 = %3").arg(ATable, helper, source));
        RunSQL(alter + QStringLiteral("DROP COLUMN ") + AName);
        RunSQL(AddColumnStatement(ATable, AName, ASpec));
        RunSQL(QStringLiteral("UPDATE %1 SET %2 = %3").arg(ATable, AName, helper));
        RunSQL(alter + QStringLiteral("DROP COLUMN ") + helper);
        RunSQL(QStringLiteral("COMMIT TRANSACTION ") + MemoTransaction);
    } catch (const std::exception&) {
        RunSQL(QStringLiteral("ROLLBACK TRANSACTION ") + MemoTransaction);
        throw;
    }
}

void TnvDBUpdate::DropIndexesWithField(const QString& ATable, const QString& AField) {
    for (auto it = FDBIndexes.begin(); it != FDBIndexes.end();) {
        QString rest = SplitDefinitionLine(FDatabase.at(it->second)).rest;
        const bool isKey = StructureText::FetchColumn(rest).toUpper() == QLatin1String("P");
        if (!rest.split(u';').contains(AField, Qt::CaseInsensitive)) {
            ++it;
            continue;
        }
        RunSQL(TnvDBUpdateSQL::DropIndex(ATable, it->first, isKey, FQueryMode));
        // the index step creates it anew as a missing one
        it = FDBIndexes.erase(it);
    }
}

// Changed fields are copied into helper columns, dropped, added anew and copied back.
void TnvDBUpdate::GenericStep(const QString& ATable) {
    QList<std::pair<QString, QString>> changed;
    WalkTargetFields([&](const QString& name, const QString& rest) {
        if (FDBFields.count(name) == 0)
            RunSQL(AddColumnStatement(ATable, name, rest));
        else if (!SpecsEqual(rest, DBSpec(name)))
            changed.append({name, rest});
        return true;
    });
    if (changed.isEmpty())
        return;
    const QString alter = QStringLiteral("ALTER TABLE ") + ATable + QStringLiteral("\r\n  ");
    QStringList toHelpers;
    QStringList fromHelpers;
    for (const auto& [name, spec] : changed) {
        RunSQL(AddColumnStatement(ATable, name + HelperSuffix, spec));
        toHelpers.append(name + HelperSuffix + QStringLiteral(" = ") + name);
        fromHelpers.append(name + QStringLiteral(" = ") + name + HelperSuffix);
    }
    RunSQL(QStringLiteral("UPDATE ") + ATable + QStringLiteral(" SET ") + toHelpers.join(Separator));
    for (const auto& [name, spec] : changed) {
        RunSQL(alter + QStringLiteral("DROP COLUMN ") + name);
        RunSQL(AddColumnStatement(ATable, name, spec));
    }
    RunSQL(QStringLiteral("UPDATE ") + ATable + QStringLiteral(" SET ") + fromHelpers.join(Separator));
    for (const auto& [name, spec] : changed)
        RunSQL(alter + QStringLiteral("DROP COLUMN ") + name + HelperSuffix);
}

// ---------------------------------------------------------------------------------------
// indexes of a table that was not rebuilt

void TnvDBUpdate::IndexStep(const QString& ATable) {
    for (FTargetIndex = StructureText::SkipToRelevant(FTarget, FTargetIndex);
         FTargetIndex < FTarget.size() && StructureText::IsKind(FTarget.at(FTargetIndex), u'I');
         FTargetIndex = StructureText::SkipToRelevant(FTarget, FTargetIndex + 1)) {
        SplitLine index = SplitDefinitionLine(FTarget.at(FTargetIndex));
        const QString kind = StructureText::FetchColumn(index.rest).toUpper();
        if (FDBIndexes.count(index.name) == 0) {
            RunSQL(TnvDBUpdateSQL::CreateIndex(ATable, index.name, kind, index.rest, FQueryMode));
            continue;
        }
        QString dbRest = DBIndexRest(index.name);
        const QString dbKind = StructureText::FetchColumn(dbRest).toUpper();
        // the kind is not compared: a change between plain and unique has no effect
        if (index.rest.compare(dbRest, Qt::CaseInsensitive) != 0) {
            if (dbKind == QLatin1String("P")) {
                ReportError(
                    QStringLiteral("Could not change index \"%1\" of the primary key\r\nin the table \"%2\""),
                    index.name, ATable, 3);
            } else {
                RunSQL(TnvDBUpdateSQL::DropIndex(ATable, index.name, false, FQueryMode));
                RunSQL(TnvDBUpdateSQL::CreateIndex(ATable, index.name, kind, index.rest, FQueryMode));
            }
        }
        FDBIndexes.erase(index.name);
    }
    if (!ProtectFromDelete) {
        for (const QString& name : DBIndexNames()) {
            QString rest = DBIndexRest(name);
            const bool isKey = StructureText::FetchColumn(rest).toUpper() == QLatin1String("P");
            RunSQL(TnvDBUpdateSQL::DropIndex(ATable, name, isKey, FQueryMode));
        }
    }
    FDBIndexes.clear();
}

} // namespace norvik
