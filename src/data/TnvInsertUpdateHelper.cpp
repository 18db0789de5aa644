#include "TnvInsertUpdateHelper.h"

#include "AnsiCodePage.h"
#include "BlobCompression.h"
#include "Clock.h"
#include "DBExceptions.h"
#include "FieldTypeKinds.h"
#include "InvDBConnection.h"
#include "NameHash.h"
#include "SQLiteDateText.h"
#include "TDateTimeUtils.h"
#include "TRepDBChangeBlock.h"
#include "TableInfoFunctions.h"
#include "TnvDBGlobals.h"
#include "TnvTableInfo.h"

namespace norvik {

namespace {

constexpr int Attempts = 3;
// a text of exactly this length is not written on SYBASE and SQL Anywhere
constexpr int SybaseSkippedLength = 999996;
const QString ParamMark = QStringLiteral("?");

QString systemField(const QString& APrefix, const char16_t* AName) {
    return APrefix + QString::fromUtf16(AName);
}

TnvAddFieldKind kindOfFieldType(TFieldType AType) {
    if (FieldTypeKinds::IsInteger(AType))
        return fkInteger;
    if (FieldTypeKinds::IsFloat(AType))
        return fkFloat;
    if (AType == ftDate)
        return fkDate;
    if (FieldTypeKinds::IsDateTime(AType))
        return fkDateTime;
    return fkString;
}

// "'" doubled, trailing #0 characters taken off
QString escapedText(const QString& AText) {
    QString text = AText;
    while (text.endsWith(QChar(0)))
        text.chop(1);
    return text.replace(QLatin1Char('\''), QStringLiteral("''"));
}

QString floatText(double AValue) {
    return FloatToTextGeneral(AValue, 15, QLatin1Char('.'));
}

double parseFloat(const QString& AText) {
    bool ok = false;
    const double value = QString(AText).replace(QLatin1Char(','), QLatin1Char('.')).trimmed().toDouble(&ok);
    if (!ok)
        throw EDBUtilsException(QStringLiteral("\"%1\" ist keine gültige Zahl.").arg(AText));
    return value;
}

qint64 parseInteger(const QString& AText) {
    bool ok = false;
    const qint64 value = AText.trimmed().toLongLong(&ok);
    return ok ? value : 0;
}

TDateTime parseDate(const QString& AText) {
    TDateTime value = 0;
    if (!TDateTimeUtils::tryParseSystemDateTime(
            QString(AText).replace(QLatin1Char('/'), QLatin1Char('.')).trimmed(), value))
        throw EDBUtilsException(QStringLiteral("\"%1\" ist kein gültiges Datum.").arg(AText));
    return value;
}

bool isStringValue(const Variant& AValue) {
    return AValue.valueType() == VarType::String || AValue.valueType() == VarType::UString;
}

bool isBlobOrGraphic(TFieldType AType) {
    return AType == ftBlob || AType == ftGraphic;
}

QByteArray valueBytes(const Variant& AValue, const QString& AFieldName) {
    switch (AValue.valueType()) {
    case VarType::Bytes:
        return AValue.toBytes();
    case VarType::String:
    case VarType::UString:
        return platform::AnsiCodePage::encode(AValue.toString());
    case VarType::Unassigned:
    case VarType::Null:
        return {};
    default:
        throw EDBUtilsException(
            QStringLiteral("Das Format %1 kann nicht in eine Bytefolge konvertiert werden: Zielfeld \"%2\".")
                .arg(int(AValue.valueType()))
                .arg(AFieldName));
    }
}

} // namespace

// ---------------------------------------------------------------------------------------
// construction

TnvInsertUpdateHelper::TnvInsertUpdateHelper(const QString& ATableName, const QString& APrefix)
    : FTableName(ATableName)
    , FPrefix(APrefix) {}

TnvInsertUpdateHelper::TnvInsertUpdateHelper(InvDBConnection& AConn, const QString& ATableName,
                                             bool APhysicalDelete)
    : FTableName(ATableName)
    , FConnection(&AConn)
    , FPhysicalDelete(APhysicalDelete) {
    FTableInfo = &GetTableInfo(AConn, ATableName);
    FPrefix = FTableInfo->Prefix();
}

std::unique_ptr<TnvInsertUpdateHelper>
TnvInsertUpdateHelper::CreateAndInsert(InvDBConnection& AConn, const QString& ATableName,
                                       bool APhysicalDelete, TnvInsertUpdateHelperModes AModes) {
    auto helper = std::make_unique<TnvInsertUpdateHelper>(AConn, ATableName, APhysicalDelete);
    helper->FUpdateKind = ukInsert;
    if (AModes.testFlag(ktiuhAddCreationFields))
        helper->AddCreationFieldsEx();
    return helper;
}

std::unique_ptr<TnvInsertUpdateHelper>
TnvInsertUpdateHelper::CreateAndInsertWithID(InvDBConnection& AConn, const QString& ATableName, qint64 ANewID,
                                             bool APhysicalDelete, TnvInsertUpdateHelperModes AModes) {
    auto helper = std::make_unique<TnvInsertUpdateHelper>(AConn, ATableName, APhysicalDelete);
    helper->FUpdateKind = ukInsert;
    helper->FIDProvided = true;
    if (AModes.testFlag(ktiuhAddCreationFields))
        helper->AddCreationFieldsEx(QString(), ANewID);
    return helper;
}

std::unique_ptr<TnvInsertUpdateHelper>
TnvInsertUpdateHelper::CreateAndUpdate(InvDBConnection& AConn, const QString& ATableName,
                                       const QString& AKeyField, const QString& AKeyValue,
                                       bool APhysicalDelete, TnvInsertUpdateHelperModes AModes) {
    auto helper = std::make_unique<TnvInsertUpdateHelper>(AConn, ATableName, APhysicalDelete);
    helper->TargetRow(ukModify, AKeyField, AKeyValue);
    if (AModes.testFlag(ktiuhAddChangedFields))
        helper->AddChangedFields();
    return helper;
}

std::unique_ptr<TnvInsertUpdateHelper>
TnvInsertUpdateHelper::CreateAndInsertUpdate(InvDBConnection& AConn, const QString& ATableName,
                                             const QString& AKeyField, const QString& AKeyValue,
                                             bool APhysicalDelete, TnvInsertUpdateHelperModes AModes) {
    auto helper = std::make_unique<TnvInsertUpdateHelper>(AConn, ATableName, APhysicalDelete);
    const QString idField = systemField(helper->FPrefix, u"ID");
    const bool hasID = helper->FieldExistsInTable(idField);
    const QString select = (hasID ? idField + QStringLiteral(" As __iKey, ") : QString()) + AKeyField;
    const auto existing = AConn.PSOpenQuery(
        QStringLiteral("SELECT %1 FROM %2 WHERE %3=%4").arg(select, ATableName, AKeyField, AKeyValue));
    if (existing->Eof()) {
        helper->FUpdateKind = ukInsert;
        if (AModes.testFlag(ktiuhAddCreationFields))
            helper->AddCreationFieldsEx();
        return helper;
    }
    helper->TargetRow(ukModify, AKeyField, AKeyValue);
    if (AModes.testFlag(ktiuhAddChangedFields)) {
        if (hasID)
            helper->TargetRow(ukModify, idField,
                              QString::number(existing->FieldByName(QStringLiteral("__iKey")).AsLargeInt()));
        helper->AddChangedFields();
    }
    return helper;
}

// The flag fields added here do not go into the soft-delete statement, which sets them
// itself; they are there for the change block.
std::unique_ptr<TnvInsertUpdateHelper>
TnvInsertUpdateHelper::CreateAndDelete(InvDBConnection& AConn, const QString& ATableName,
                                       const QString& AKeyField, const QString& AKeyValue,
                                       bool APhysicalDelete, TnvInsertUpdateHelperModes AModes) {
    auto helper = std::make_unique<TnvInsertUpdateHelper>(AConn, ATableName, APhysicalDelete);
    helper->TargetRow(ukDelete, AKeyField, AKeyValue);
    if (APhysicalDelete)
        return helper;
    if (AModes.testFlag(ktiuhAddChangedFields))
        helper->AddChangedFields();
    switch (AConn.PSGetDeleteFlagKindByPrefix(helper->FPrefix)) {
    case dfkDeleted:
        helper->AddField(systemField(helper->FPrefix, u"Deleted"), Variant(QStringLiteral("J")), fkString);
        break;
    case dfkVisibleState:
        helper->AddField(systemField(helper->FPrefix, u"VisibleState"), Variant(1), fkInteger);
        break;
    default:
        break;
    }
    return helper;
}

// ---------------------------------------------------------------------------------------
// fields

TnvFieldInfo* TnvInsertUpdateHelper::TableField(const QString& AFieldName) const {
    return FTableInfo ? FTableInfo->FindField(AFieldName) : nullptr;
}

bool TnvInsertUpdateHelper::FieldExists(const QString& AFieldName) const {
    return FFieldData.find(AFieldName) != FFieldData.end();
}

bool TnvInsertUpdateHelper::FieldExistsInTable(const QString& AFieldName) const {
    return TableField(AFieldName) != nullptr;
}

// a name added twice stands twice in the statement; the dictionary points at the last one
void TnvInsertUpdateHelper::AppendField(const TnvFieldData& AData) {
    FFieldList.append(AData);
    FFieldData[AData.FieldName] = int(FFieldList.size() - 1);
}

void TnvInsertUpdateHelper::AddParamField(const QString& AFieldName, TFieldType ADataType,
                                          const Variant& AValue) {
    TnvFieldData data;
    data.FieldName = AFieldName;
    data.FieldData = ParamMark;
    data.Param = FParams.Add(AFieldName, ADataType, AValue);
    AppendField(data);
}

TnvParam* TnvInsertUpdateHelper::AddField(const QString& AFieldName) {
    if (FIgnoreExistingFields && FieldExists(AFieldName))
        return nullptr;
    AddParamField(AFieldName, ftUnknown, Variant());
    return FFieldList.last().Param;
}

void TnvInsertUpdateHelper::AddField(const QString& AFieldName, const Variant& ASQLValue,
                                     TnvAddFieldKind AFieldKind, bool CheckMaxLen) {
    Variant value = ASQLValue.stripped();
    QString unicodePrefix;
    if (FConnection && FConnection->PSUnicodeEnabled() &&
        FConnection->PSIsFieldUnicode(FTableName, AFieldName))
        unicodePrefix = FConnection->PSUnicodeStringPrefix();
    if (FIgnoreExistingFields && FieldExists(AFieldName))
        return;
    if (FConnection && isStringValue(value) && value.toString().size() == SybaseSkippedLength &&
        (FConnection->PSGetQueryMode() == qsmSYBASE || FConnection->PSGetQueryMode() == qsmSQLANYWHERE))
        return;
    const TnvFieldInfo* field = TableField(AFieldName);
    if (FTableInfo && !field)
        return;
    if (AFieldKind == fkUnknown && field && isBlobOrGraphic(field->DataType())) {
        AddParamField(AFieldName, field->DataType(), Variant(valueBytes(value, AFieldName)));
        return;
    }
    if (AFieldKind == fkUnknown && field)
        AFieldKind = kindOfFieldType(field->DataType());
    AFieldKind = ConvertValue(AFieldKind, value);
    if (CheckMaxLen && field && AFieldKind == fkString &&
        (field->DataType() == ftString || field->DataType() == ftWideString))
        value = Variant(CheckedText(AFieldName, value.toString()));
    TnvFieldData data;
    data.FieldName = AFieldName;
    data.FieldKind = AFieldKind;
    data.FieldData = SQLText(AFieldKind, value, unicodePrefix);
    data.FieldDataCB = ChangeBlockText(AFieldKind, value);
    AppendField(data);
}

// Brings the value into the form of its kind. Nothing is stored as NULL on this path: an
// empty value becomes the kind's neutral value, a date the 30 December 1899.
TnvAddFieldKind TnvInsertUpdateHelper::ConvertValue(TnvAddFieldKind AKind, Variant& AValue) const {
    const bool empty = AValue.isEmpty();
    const bool text = isStringValue(AValue);
    switch (AKind) {
    case fkInteger:
        AValue = Variant(empty ? qint64(0) : text ? parseInteger(AValue.toString()) : AValue.toInt64());
        break;
    case fkDate:
    case fkDateTime:
        AValue = Variant::fromDate(empty ? 0.0 : text ? parseDate(AValue.toString()) : AValue.toDate());
        break;
    case fkFloat:
        AValue = Variant(empty ? 0.0 : text ? parseFloat(AValue.toString()) : AValue.toDouble());
        break;
    default:
        AValue = Variant(empty ? QString() : AValue.toString());
        break;
    }
    return AKind;
}

QString TnvInsertUpdateHelper::CheckedText(const QString& AFieldName, const QString& AText) const {
    const TnvFieldInfo* field = TableField(AFieldName);
    if (!field || field->Size() <= 0 || AText.size() <= field->Size())
        return AText;
    if (FRaiseExceptionOnFieldExtension)
        throw EnvDBException(
            QStringLiteral(
                "Der Inhalt des Feldes %1 überschreitet die maximale Länge von %2 Zeichen um %3 Zeichen.")
                .arg(AFieldName)
                .arg(field->Size())
                .arg(AText.size() - field->Size()));
    return AText.left(field->Size());
}

QString TnvInsertUpdateHelper::EncodeDate(TDateTime AValue, bool AWithTime) const {
    if (FConnection)
        return AWithTime ? FConnection->PSEncodeDateTime(AValue) : FConnection->PSEncodeDate(AValue);
    const QString text = SQLiteDateText::FromDateTime(AWithTime ? AValue : TDateTimeUtils::dateOf(AValue));
    return QLatin1Char('\'') + text + QLatin1Char('\'');
}

QString TnvInsertUpdateHelper::SQLText(TnvAddFieldKind AKind, const Variant& AValue,
                                       const QString& AUnicodePrefix) const {
    switch (AKind) {
    case fkInteger:
        return QString::number(AValue.toInt64());
    case fkDate:
        return EncodeDate(AValue.toDate(), false);
    case fkDateTime:
        return EncodeDate(AValue.toDate(), true);
    case fkFloat:
        return floatText(AValue.toDouble());
    default:
        return AUnicodePrefix + QLatin1Char('\'') + escapedText(AValue.toString()) + QLatin1Char('\'');
    }
}

QString TnvInsertUpdateHelper::ChangeBlockText(TnvAddFieldKind AKind, const Variant& AValue) const {
    switch (AKind) {
    case fkInteger:
        return QString::number(AValue.toInt64());
    case fkDate:
        return TDateTimeUtils::toDate(AValue.toDate()).toString(QStringLiteral("dd.MM.yyyy"));
    case fkDateTime:
        return TDateTimeUtils::toQDateTime(AValue.toDate()).toString(QStringLiteral("dd.MM.yyyy HH:mm:ss"));
    case fkFloat:
        return floatText(AValue.toDouble());
    default:
        return escapedText(AValue.toString());
    }
}

void TnvInsertUpdateHelper::AddField(const TnvField& AField, bool IgnoreNulls) {
    const bool memo = FieldTypeKinds::IsMemo(AField.DataType());
    if (AField.IsBlob()) {
        const QString text = AField.AsString();
        if (memo && !FHandleMemoAsBinary && !text.contains(QLatin1String("\r\n")))
            AddField(AField.FieldName(), AField.Value(), kindOfFieldType(AField.DataType()));
        else if (!(AField.IsNull() && IgnoreNulls))
            AddParamField(AField.FieldName(), AField.DataType(), AField.Value());
        return;
    }
    if (AField.IsNull() && IgnoreNulls)
        return;
    if (FHandleMemoAsBinary && AField.AsString().contains(QLatin1String("\r\n")))
        AddParamField(AField.FieldName(), AField.DataType(), AField.Value());
    else
        AddField(AField.FieldName(), AField.Value());
}

void TnvInsertUpdateHelper::AddFieldText(const QString& AFieldName, const QString& AValue,
                                         TFieldType AFieldType, bool CheckMaxLen) {
    if (FieldTypeKinds::IsBlobKind(AFieldType)) {
        if (!AValue.isEmpty())
            AddFieldMemory(AFieldName, platform::AnsiCodePage::encode(AValue), AFieldType);
        return;
    }
    const TnvAddFieldKind kind = kindOfFieldType(AFieldType);
    switch (kind) {
    case fkDate:
    case fkDateTime:
        AddField(AFieldName, AValue.trimmed().isEmpty() ? Variant() : Variant::fromDate(parseDate(AValue)),
                 kind, CheckMaxLen);
        break;
    case fkFloat:
        AddField(AFieldName, AValue.trimmed().isEmpty() ? Variant() : Variant(parseFloat(AValue)), kind,
                 CheckMaxLen);
        break;
    default:
        AddField(AFieldName, Variant(AValue), kind, CheckMaxLen);
        break;
    }
}

void TnvInsertUpdateHelper::AddFieldMemory(const QString& AFieldName, const char* AMemory, int ASize,
                                           TFieldType AFieldType) {
    AddFieldMemory(AFieldName, QByteArray(AMemory, ASize), AFieldType);
}

void TnvInsertUpdateHelper::AddFieldMemory(const QString& AFieldName, const QByteArray& AMemory,
                                           TFieldType AFieldType) {
    if (FieldTypeKinds::IsMemo(AFieldType)) {
        AddParamField(AFieldName, AFieldType, Variant(platform::AnsiCodePage::decode(AMemory)));
        return;
    }
    AddParamField(AFieldName, AFieldType, AMemory.isEmpty() ? Variant::null() : Variant(AMemory));
}

void TnvInsertUpdateHelper::AddTextToBlobCompressed(const QString& AFieldName, const QString& AData,
                                                    int ACompressionLevel) {
    AddFieldMemory(AFieldName,
                   BlobCompression::Compress(platform::AnsiCodePage::encode(AData), ACompressionLevel),
                   ftBlob);
}

void TnvInsertUpdateHelper::AddDataSetFields(const QString& ATableName, const QString& AFields,
                                             const QString& AFilter, const QString& AExceptFields,
                                             bool IgnoreNulls) {
    if (!FConnection)
        throw EDBUtilsException(QStringLiteral("Entweder Verbindung oder Tabelle nicht definiert."));
    QString sql = QStringLiteral("SELECT %1 FROM %2")
                      .arg(AFields.isEmpty() ? QStringLiteral("*") : AFields, ATableName);
    if (!AFilter.trimmed().isEmpty())
        sql += QStringLiteral(" WHERE ") + AFilter;
    const auto query = FConnection->PSOpenQuery(sql);
    if (!query->Eof())
        AddDataSetFields(*query, false, AExceptFields, IgnoreNulls);
}

void TnvInsertUpdateHelper::AddDataSetFields(TnvDataSet& ADataSet, bool ASystemFields,
                                             const QString& ExcludeFields, bool IgnoreNulls) {
    QStringList excluded;
    if (!ASystemFields) {
        for (const char16_t* name : {u"AnlageAm", u"AnlageVon", u"AenderungAm", u"AenderungVon", u"Read",
                                     u"Update", u"Owner", u"Delete", u"Deleted", u"VisibleState"})
            excluded.append(systemField(FPrefix, name));
    }
    for (const QString& name :
         QString(ExcludeFields).replace(QLatin1Char(','), QLatin1Char(';')).split(QLatin1Char(';')))
        excluded.append(name.trimmed());
    const QString idField = systemField(FPrefix, u"ID");
    for (int i = 0; i < ADataSet.FieldCount(); ++i) {
        const TnvField& field = ADataSet.Fields(i);
        if (field.FieldName().compare(idField, Qt::CaseInsensitive) == 0 ||
            excluded.contains(field.FieldName(), Qt::CaseInsensitive) ||
            !FieldExistsInTable(field.FieldName()))
            continue;
        AddField(field, IgnoreNulls);
    }
}

void TnvInsertUpdateHelper::AddDataSetFieldsComplete(TnvDataSet& ADataSet, bool IgnoreNulls) {
    for (int i = 0; i < ADataSet.FieldCount(); ++i) {
        if (FieldExistsInTable(ADataSet.Fields(i).FieldName()))
            AddField(ADataSet.Fields(i), IgnoreNulls);
    }
}

// ---------------------------------------------------------------------------------------
// system fields

void TnvInsertUpdateHelper::AddChangedFields(const QString& APrefix) {
    const QString prefix = PrefixOr(APrefix);
    if (FTableInfo && !FieldExistsInTable(systemField(prefix, u"AenderungAm")))
        return;
    AddField(systemField(prefix, u"AenderungAm"), Variant::fromDate(Clock::nowDateTime()), fkDateTime);
    AddField(systemField(prefix, u"AenderungVon"), Variant(TnvDBGlobals::CurrentUserID), fkInteger);
}

void TnvInsertUpdateHelper::AddCreationFields(const QString& APrefix) {
    const QString prefix = PrefixOr(APrefix);
    if (!FTableInfo || FieldExistsInTable(systemField(prefix, u"AnlageAm"))) {
        AddField(systemField(prefix, u"AnlageAm"), Variant::fromDate(Clock::nowDateTime()), fkDateTime);
        AddField(systemField(prefix, u"AnlageVon"), Variant(TnvDBGlobals::CurrentUserID), fkInteger);
    }
    AddChangedFields(prefix);
}

void TnvInsertUpdateHelper::AddCreationFieldsEx(const QString& APrefix, qint64 ANewID) {
    const QString prefix = PrefixOr(APrefix);
    const qint64 id = ANewID != 0 ? ANewID : FetchID(1);
    AddField(systemField(prefix, u"ID"), Variant(id), fkInteger);
    AddCreationFields(prefix);
    SetKeyFields(systemField(prefix, u"ID"));
    SetKeyValues(QString::number(id));
}

void TnvInsertUpdateHelper::AddIDField(int ARange) {
    if (!FConnection)
        throw EDBUtilsException(QStringLiteral("Entweder Verbindung oder Tabelle nicht definiert."));
    const qint64 id = FetchID(ARange);
    FLastID = id;
    AddField(systemField(FPrefix, u"ID"), Variant(id), fkInteger);
    if (FUpdateKind == ukInsert && FKeyValues.isEmpty())
        SetKeyValues(QString::number(id));
}

// a new row starts visible and not deleted
void TnvInsertUpdateHelper::AddDeletedField(const QString& APrefix) {
    if (!FTableInfo)
        return;
    const QString prefix = PrefixOr(APrefix);
    const QString visibleState = systemField(prefix, u"VisibleState");
    const QString deleted = systemField(prefix, u"Deleted");
    if (FieldExistsInTable(visibleState) && !FieldExists(visibleState))
        AddField(visibleState, Variant(0), fkInteger);
    if (FieldExistsInTable(deleted) && !FieldExists(deleted))
        AddField(deleted, Variant(QStringLiteral("N")), fkString);
}

qint64 TnvInsertUpdateHelper::FetchID(int ARange) {
    if (!FConnection)
        throw EDBUtilsException(QStringLiteral("Entweder Verbindung oder Tabelle nicht definiert."));
    const qint64 id = FKeyGen ? FKeyGen(*FConnection, FTableName, ARange, -1)
                              : FConnection->PSGenID(FTableName, -1, ARange);
    FLastID = id;
    return id;
}

quint32 TnvInsertUpdateHelper::HashCodeDeletedField() {
    if (FHashCodeDeleted == 0)
        FHashCodeDeleted = NameHash(systemField(FPrefix, u"Deleted"));
    return FHashCodeDeleted;
}

quint32 TnvInsertUpdateHelper::HashCodeVisibleStateField() {
    if (FHashCodeVisibleState == 0)
        FHashCodeVisibleState = NameHash(systemField(FPrefix, u"VisibleState"));
    return FHashCodeVisibleState;
}

void TnvInsertUpdateHelper::Clear() {
    FFieldList.clear();
    FFieldData.clear();
    FParams.Clear();
    FKeyFilter.clear();
    FUpdateKind = ukModify;
    FIDProvided = false;
}

void TnvInsertUpdateHelper::ForceTableInfo() {
    if (FConnection)
        FTableInfo = &GetTableInfo(*FConnection, FTableName, true);
}

// ---------------------------------------------------------------------------------------
// key

void TnvInsertUpdateHelper::SetKeyFields(const QString& AValue) {
    FKeyFields = AValue;
    RebuildKeyFilter();
}

void TnvInsertUpdateHelper::SetKeyValues(const QString& AValue) {
    FKeyValues = AValue;
    bool ok = false;
    const qint64 id = AValue.trimmed().toLongLong(&ok);
    if (ok)
        FLastID = id;
    RebuildKeyFilter();
}

// "(ADRID=10000001)", or "(CFGUser='SYSTEM' AND CFGCode='DAME')" for a key of two fields
void TnvInsertUpdateHelper::TargetRow(TUpdateKind AKind, const QString& AKeyField, const QString& AKeyValue) {
    FUpdateKind = AKind;
    SetKeyFields(AKeyField);
    SetKeyValues(AKeyValue);
}

void TnvInsertUpdateHelper::RebuildKeyFilter() {
    if (FKeyFields.isEmpty() || FKeyValues.isEmpty())
        return;
    const QStringList fields = FKeyFields.split(QLatin1Char(','));
    const QStringList values = FKeyValues.split(QLatin1Char(','));
    QStringList conditions;
    for (qsizetype i = 0; i < qMin(fields.size(), values.size()); ++i)
        conditions.append(fields[i].trimmed() + QLatin1Char('=') + values[i].trimmed());
    FKeyFilter = QLatin1Char('(') + conditions.join(QStringLiteral(" AND ")) + QLatin1Char(')');
}

// a missing key must never touch the whole table
void TnvInsertUpdateHelper::CheckKeyFilter() const {
    if (FUpdateKind != ukInsert && FKeyFilter.isEmpty())
        throw EDBUtilsException(QStringLiteral("SQL couldn't be created: no keyfilter given"));
}

// ---------------------------------------------------------------------------------------
// statements

QString TnvInsertUpdateHelper::SQLInsert() const {
    QStringList names;
    QStringList values;
    for (const TnvFieldData& field : FFieldList) {
        names.append(field.FieldName);
        values.append(field.FieldData);
    }
    return QStringLiteral("INSERT INTO ") + FTableName + QStringLiteral(" (") +
           names.join(QStringLiteral(", ")) + QStringLiteral(") VALUES(") +
           values.join(QStringLiteral(", ")) + QLatin1Char(')');
}

QString TnvInsertUpdateHelper::SQLUpdate(const QString& AFilter) const {
    CheckKeyFilter();
    QStringList assignments;
    for (const TnvFieldData& field : FFieldList)
        assignments.append(field.FieldName + QStringLiteral(" = ") + field.FieldData);
    QStringList filters;
    if (!AFilter.trimmed().isEmpty())
        filters.append(AFilter);
    if (!FExternalFilter.trimmed().isEmpty())
        filters.append(FExternalFilter);
    QString sql = QStringLiteral("UPDATE ") + FTableName + QStringLiteral(" SET ") +
                  assignments.join(QStringLiteral(", "));
    if (!filters.isEmpty())
        sql += QStringLiteral(" WHERE ") + filters.join(QStringLiteral(" AND "));
    return sql;
}

bool TnvInsertUpdateHelper::IsPhysicalDelete() const {
    return FPhysicalDelete && (!FShallReplicate || TnvDBGlobals::AllowPhysicalDeleteOnReplication);
}

QString TnvInsertUpdateHelper::SQLDelete(const QString& AFilter) const {
    CheckKeyFilter();
    if (IsPhysicalDelete())
        return QStringLiteral("DELETE FROM %1 WHERE %2").arg(FTableName, AFilter);
    if (!FConnection) {
        const QString filter = FExternalFilter.trimmed().isEmpty()
                                   ? AFilter
                                   : AFilter + QStringLiteral(" AND ") + FExternalFilter;
        return QStringLiteral("UPDATE %1 SET %2='J' WHERE %3")
            .arg(FTableName, systemField(FPrefix, u"Deleted"), filter);
    }
    // whatever of the change stamps and the two flags the table has
    const std::pair<QString, QString> candidates[] = {
        {systemField(FPrefix, u"AenderungAm"), FConnection->PSEncodeDateTime(Clock::nowDateTime())},
        {systemField(FPrefix, u"AenderungVon"), QString::number(TnvDBGlobals::CurrentUserID)},
        {systemField(FPrefix, u"Deleted"), QStringLiteral("'J'")},
        {systemField(FPrefix, u"VisibleState"), QStringLiteral("1")},
    };
    QStringList assignments;
    for (const auto& [field, value] : candidates) {
        if (FieldExistsInTable(field))
            assignments.append(field + QLatin1Char('=') + value);
    }
    return QStringLiteral("UPDATE %1 SET %2 WHERE %3")
        .arg(FTableName, assignments.join(QStringLiteral(", ")), AFilter);
}

QString TnvInsertUpdateHelper::Statement() const {
    switch (FUpdateKind) {
    case ukInsert:
        return SQLInsert();
    case ukDelete:
        return SQLDelete(FKeyFilter);
    default:
        return SQLUpdate(FKeyFilter);
    }
}

// ---------------------------------------------------------------------------------------
// execution

bool TnvInsertUpdateHelper::Execute() {
    if (!FConnection)
        throw EDBUtilsException(QStringLiteral("Entweder Verbindung oder Tabelle nicht definiert."));
    return Execute(*FConnection, FConnection->PSReplicate(FTableName), false);
}

bool TnvInsertUpdateHelper::Execute(InvDBConnection& Conn, bool AReplicate, bool ABackupMode) {
    FShallReplicate = AReplicate;
    Conn.PSStartTransaction();
    try {
        if (FUpdateKind == ukInsert && !ABackupMode)
            AddDeletedField();
        bool success = RunAttempts(Conn);
        if (AReplicate && success)
            success = Conn.PSSaveChangeBlock(*CreateDBChangeBlock());
        Conn.PSEndTransaction(success);
        return success;
    } catch (...) {
        Conn.PSEndTransaction(false);
        throw;
    }
}

// Up to three tries: one that changes no row uses up a try, and so does a key collision on
// insert, after which the key field gets a fresh ID. The number lost is never reused.
bool TnvInsertUpdateHelper::RunAttempts(InvDBConnection& Conn) {
    const bool requestLive = Conn.PSGetQueryMode() == qsmSQLANYWHERE;
    for (int attempt = 1; attempt <= Attempts; ++attempt) {
        try {
            if (Conn.PSExecuteStatement(Statement(), &FParams, nullptr, requestLive, false) > 0)
                return true;
        } catch (const std::exception& error) {
            if (!RetryWithNewKey(error, attempt))
                throw;
        }
    }
    return false;
}

bool TnvInsertUpdateHelper::RetryWithNewKey(const std::exception& AError, int AAttempt) {
    const bool keyCollision =
        QString::fromUtf8(AError.what()).contains(QLatin1String("primary"), Qt::CaseInsensitive);
    if (FUpdateKind != ukInsert || FIDProvided || AAttempt >= Attempts || !keyCollision ||
        !FieldExists(FKeyFields))
        return false;
    ReplaceFieldData(FKeyFields, QString::number(FetchID(1)));
    return true;
}

// the change-block text keeps the value first given
void TnvInsertUpdateHelper::ReplaceFieldData(const QString& AFieldName, const QString& AFieldData) {
    FFieldList[FFieldData.at(AFieldName)].FieldData = AFieldData;
}

std::unique_ptr<TRepDBChangeBlock> TnvInsertUpdateHelper::CreateDBChangeBlock() const {
    QString action = QStringLiteral("U");
    if (FUpdateKind == ukInsert)
        action = QStringLiteral("I");
    else if (FUpdateKind == ukDelete)
        action = IsPhysicalDelete() ? QStringLiteral("P") : QStringLiteral("D");
    return CreateDBChangeBlock(action, FKeyValues);
}

std::unique_ptr<TRepDBChangeBlock> TnvInsertUpdateHelper::CreateDBChangeBlock(const QString& Action,
                                                                              const QString& AKey) const {
    auto block = std::make_unique<TRepDBChangeBlock>(TnvDBGlobals::CurrentUserID, Clock::nowDateTime(),
                                                     FTableName, AKey, Action);
    for (const TnvFieldData& field : FFieldList) {
        if (!field.Param)
            block->AddValue(field.FieldName, field.FieldDataCB);
        else if (field.Param->IsBlob())
            block->AddMemory(field.FieldName,
                             field.Param->Value().isEmpty() ? QByteArray() : field.Param->Value().toBytes());
        else
            block->AddValue(field.FieldName, field.Param->AsText());
    }
    return block;
}

} // namespace norvik
