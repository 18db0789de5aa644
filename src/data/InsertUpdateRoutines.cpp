#include "InsertUpdateRoutines.h"

#include "DBExceptions.h"
#include "TnvInsertUpdateHelper.h"

namespace norvik {

namespace {

void addValues(TnvInsertUpdateHelper& AHelper, const QStringList& AFieldNames,
               const QList<Variant>& AValues) {
    if (AFieldNames.size() != AValues.size())
        throw EDBUtilsException(
            QStringLiteral("Die Anzahl der Feldnamen und der Werte stimmt nicht überein."));
    for (qsizetype i = 0; i < AFieldNames.size(); ++i)
        AHelper.AddField(AFieldNames[i], AValues[i]);
}

} // namespace

bool UpdateRecord(InvDBConnection& AConn, const QString& ATableName, const QString& AKeyField,
                  const QString& AKeyValue, const QStringList& AFieldNames, const QList<Variant>& AValues) {
    const auto helper = TnvInsertUpdateHelper::CreateAndUpdate(AConn, ATableName, AKeyField, AKeyValue);
    addValues(*helper, AFieldNames, AValues);
    return helper->Execute();
}

qint64 InsertRecord(InvDBConnection& AConn, const QString& ATableName, const QStringList& AFieldNames,
                    const QList<Variant>& AValues) {
    const auto helper = TnvInsertUpdateHelper::CreateAndInsert(AConn, ATableName);
    addValues(*helper, AFieldNames, AValues);
    helper->Execute();
    return helper->LastID();
}

bool DeleteRecord(InvDBConnection& AConn, const QString& ATableName, const QString& AKeyField,
                  const QString& AKeyValue) {
    const auto helper = TnvInsertUpdateHelper::CreateAndDelete(AConn, ATableName, AKeyField, AKeyValue, false,
                                                               AllHelperModes);
    return helper->Execute();
}

} // namespace norvik
