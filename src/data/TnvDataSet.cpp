#include "TnvDataSet.h"

#include "DBExceptions.h"

namespace norvik {

void TnvDataSet::SetSQL(const QString& sql) {
    if (FActive)
        Close();
    FSql = sql;
}

void TnvDataSet::Close() {
    FFieldCache.ClearCache();
    FFields.clear();
    FActive = false;
    FEof = true;
    FRowNumber = 0;
}

TnvField& TnvDataSet::FieldByName(const QString& fieldName) {
    TnvField* field = FindField(fieldName);
    if (!field)
        throw EDBConnectionException(QStringLiteral("Field '%1' not found").arg(fieldName));
    return *field;
}

QStringList TnvDataSet::FieldNames() const {
    QStringList names;
    for (const auto& field : FFields)
        names.append(field->FieldName());
    return names;
}

} // namespace norvik
