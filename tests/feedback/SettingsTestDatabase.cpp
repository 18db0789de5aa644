#include "SettingsTestDatabase.h"

#include "InsertUpdateRoutines.h"
#include "InvDBConnection.h"
#include "TnvDBConfig.h"
#include "TnvNamedValues.h"

using namespace norvik;

void SettingsTestDatabase::SetUp() {
    ASSERT_NE(Data.GetConnection(), nullptr);
    Conn().PSExecuteStatement(QStringLiteral("DELETE FROM tblTherapeuten"));
    Conn().PSExecuteStatement(QStringLiteral("DELETE FROM sysConfig"));
}

InvDBConnection& SettingsTestDatabase::Conn() {
    return *Data.GetConnection();
}

qint64 SettingsTestDatabase::AddTherapist(const QString& AName, const QString& AJobTitle,
                                          const QString& ASpecialty, const QString& AMailbox) {
    return InsertRecord(Conn(), QStringLiteral("tblTherapeuten"),
                        {QStringLiteral("TPTZusatzText1"), QStringLiteral("TPTZusatzText2"),
                         QStringLiteral("TPTDaMeFachgebiet"), QStringLiteral("TPTDaMeCode")},
                        {Variant(AName), Variant(AJobTitle), Variant(ASpecialty), Variant(AMailbox)});
}

QStringList SettingsTestDatabase::TherapistRows() {
    QStringList rows;
    Conn().PSForEachRecord(
        QStringLiteral("SELECT TPTID, TPTZusatzText1, TPTZusatzText2, TPTDaMeFachgebiet, TPTDaMeCode "
                       "FROM tblTherapeuten ORDER BY TPTID"),
        [&rows](TnvDataSet& ARow) {
            QStringList fields;
            for (int i = 0; i < ARow.FieldCount(); ++i)
                fields << ARow.Fields(i).AsString();
            rows << fields.join(u'|');
        });
    return rows;
}

QStringList SettingsTestDatabase::TherapistNames() {
    QStringList names;
    Conn().PSForEachRecord(
        QStringLiteral("SELECT TPTZusatzText1 FROM tblTherapeuten ORDER BY TPTZusatzText1"),
        [&names](TnvDataSet& ARow) { names << ARow.Fields(0).AsString(); });
    return names;
}

TDaMeSettings SettingsTestDatabase::StoredDaMe() {
    const auto config = TnvDBConfig::LoadConfig(Conn(), QStringLiteral("DAME"), QStringLiteral("SYSTEM"));
    return {config->GetAsString(QStringLiteral("ExportFolder")),
            config->GetAsString(QStringLiteral("Executable")),
            config->GetAsString(QStringLiteral("DOCXTemplate"))};
}

void SettingsTestDatabase::StoreDaMe(const TDaMeSettings& ADaMe) {
    auto config = TnvNamedValues::Create();
    config->SetValueAsString(QStringLiteral("ExportFolder"), ADaMe.ExportFolder);
    config->SetValueAsString(QStringLiteral("Executable"), ADaMe.Executable);
    config->SetValueAsString(QStringLiteral("DOCXTemplate"), ADaMe.DOCXTemplate);
    TnvDBConfig::SaveConfig(Conn(), QStringLiteral("DAME"), QStringLiteral("SYSTEM"), *config);
}
