#include "TnvOptimizedADQuery.h"

#include "AnsiCodePage.h"
#include "FieldTypeKinds.h"
#include "SQLiteDateText.h"
#include "TnvSQLiteDatabase.h"

#include <sqlite3.h>

namespace norvik {

namespace {

void bindText(sqlite3_stmt* statement, int index, const QString& text) {
    sqlite3_bind_text16(statement, index, text.utf16(), int(text.size() * sizeof(char16_t)),
                        SQLITE_TRANSIENT);
}

void bindBytes(sqlite3_stmt* statement, int index, const QByteArray& bytes) {
    sqlite3_bind_blob(statement, index, bytes.constData(), int(bytes.size()), SQLITE_TRANSIENT);
}

int bindParam(sqlite3_stmt* statement, int index, const TnvParam& param) {
    const Variant& value = param.Value();
    switch (value.valueType()) {
    case VarType::Unassigned:
    case VarType::Null:
        return sqlite3_bind_null(statement, index);
    case VarType::Boolean:
        return sqlite3_bind_int(statement, index, value.toBool() ? 1 : 0);
    case VarType::Integer:
    case VarType::Int64:
        return sqlite3_bind_int64(statement, index, value.toInt64());
    case VarType::Double:
    case VarType::Currency:
        return sqlite3_bind_double(statement, index, value.toDouble());
    case VarType::Date:
        bindText(statement, index, SQLiteDateText::FromDateTime(value.toDate()));
        return SQLITE_OK;
    case VarType::Bytes:
        bindBytes(statement, index, value.toBytes());
        return SQLITE_OK;
    default:
        // text bound to a binary parameter goes in as the bytes of the ANSI code page
        if (param.IsBlob())
            bindBytes(statement, index, platform::AnsiCodePage::encode(value.toString()));
        else
            bindText(statement, index, value.toString());
        return SQLITE_OK;
    }
}

QString columnText(sqlite3_stmt* statement, int column) {
    const auto* text = static_cast<const char16_t*>(sqlite3_column_text16(statement, column));
    return QString::fromUtf16(text, sqlite3_column_bytes16(statement, column) / qsizetype(sizeof(char16_t)));
}

Variant columnValue(sqlite3_stmt* statement, int column, TFieldType dataType) {
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER:
        return Variant(qint64(sqlite3_column_int64(statement, column)));
    case SQLITE_FLOAT:
        return Variant(sqlite3_column_double(statement, column));
    case SQLITE_BLOB: {
        const auto* data = static_cast<const char*>(sqlite3_column_blob(statement, column));
        return Variant(QByteArray(data, sqlite3_column_bytes(statement, column)));
    }
    case SQLITE_NULL:
        return Variant::null();
    default: {
        const QString text = columnText(statement, column);
        TDateTime date = 0;
        if (FieldTypeKinds::IsDateTime(dataType) && SQLiteDateText::TryParse(text, date))
            return Variant::fromDate(date);
        return Variant(text);
    }
    }
}

// SQLite keeps the count of the last writing statement; a query changes nothing
int changedRows(sqlite3_stmt* statement, const TnvSQLiteDatabase& database) {
    return sqlite3_stmt_readonly(statement) ? 0 : database.Changes();
}

bool isBlankTail(const char* tail) {
    return !tail || QByteArray(tail).trimmed().isEmpty();
}

} // namespace

TnvOptimizedADQuery::~TnvOptimizedADQuery() {
    Finalize();
}

sqlite3_stmt* TnvOptimizedADQuery::Prepare(const char* text, int size, const char** tail) {
    sqlite3_stmt* statement = nullptr;
    const int code = sqlite3_prepare_v2(FDatabase.Handle(), text, size, &statement, tail);
    if (code != SQLITE_OK)
        FDatabase.RaiseError(code);
    return statement;
}

void TnvOptimizedADQuery::BindParams(sqlite3_stmt* statement) {
    const int count = qMin(Params().Count(), sqlite3_bind_parameter_count(statement));
    for (int i = 0; i < count; ++i) {
        const int code = bindParam(statement, i + 1, Params()[i]);
        if (code != SQLITE_OK)
            FDatabase.RaiseError(code);
    }
}

void TnvOptimizedADQuery::Open() {
    Close();
    const QByteArray text = SQL().toUtf8();
    FStatement = Prepare(text.constData(), int(text.size()), nullptr);
    if (!FStatement)
        return; // a text of blanks or comments only: an empty result
    BindParams(FStatement);
    BuildFields();
    FActive = true;
    FEof = !Step(FStatement);
    FRowsAffected = changedRows(FStatement, FDatabase);
    if (!FEof)
        ReadRow();
}

int TnvOptimizedADQuery::ExecSQL() {
    Close();
    const QByteArray text = SQL().toUtf8();
    const char* next = text.constData();
    bool first = true;
    FRowsAffected = 0;
    while (!isBlankTail(next)) {
        const char* tail = nullptr;
        const int rest = int(text.size() - (next - text.constData()));
        sqlite3_stmt* statement = Prepare(next, rest, &tail);
        if (!statement)
            break;
        try {
            // the parameters belong to the first statement of the text
            if (first)
                BindParams(statement);
            while (Step(statement)) {
            }
        } catch (...) {
            sqlite3_finalize(statement);
            throw;
        }
        FRowsAffected = changedRows(statement, FDatabase);
        sqlite3_finalize(statement);
        next = tail;
        first = false;
    }
    return FRowsAffected;
}

bool TnvOptimizedADQuery::Step(sqlite3_stmt* statement) {
    const int code = sqlite3_step(statement);
    if (code == SQLITE_ROW)
        return true;
    if (code == SQLITE_DONE)
        return false;
    const int extended = sqlite3_extended_errcode(FDatabase.Handle());
    sqlite3_reset(statement);
    FDatabase.RaiseError(extended);
}

void TnvOptimizedADQuery::Next() {
    if (!FActive || FEof)
        return;
    FEof = !Step(FStatement);
    if (!FEof)
        ReadRow();
}

void TnvOptimizedADQuery::BuildFields() {
    FFields.clear();
    const int count = sqlite3_column_count(FStatement);
    for (int i = 0; i < count; ++i) {
        const QString name = QString::fromUtf8(sqlite3_column_name(FStatement, i));
        const char* declared = sqlite3_column_decltype(FStatement, i);
        const QString declaration = declared ? QString::fromUtf8(declared) : QString();
        const TFieldType type = declared ? FieldTypeKinds::FromSQLiteDeclaration(declaration) : ftUnknown;
        const int size =
            FieldTypeKinds::IsText(type) ? FieldTypeKinds::SizeFromSQLiteDeclaration(declaration) : 0;
        FFields.push_back(std::make_unique<TnvField>(name, type, size));
    }
    FieldsChanged();
}

void TnvOptimizedADQuery::ReadRow() {
    ++FRowNumber;
    for (int i = 0; i < FieldCount(); ++i)
        FFields[i]->SetValue(columnValue(FStatement, i, FFields[i]->DataType()));
}

void TnvOptimizedADQuery::Finalize() {
    if (FStatement)
        sqlite3_finalize(FStatement);
    FStatement = nullptr;
}

void TnvOptimizedADQuery::Close() {
    Finalize();
    TnvDataSet::Close();
}

} // namespace norvik
