#include "TmodData.h"

#include "HashLittle.h"
#include "InvDBConnection.h"
#include "StructureText.h"
#include "TnvDBConfig.h"
#include "TnvDBConnection.h"
#include "TnvInsertUpdateHelper.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <gtest/gtest.h>

using norvik::InvDBConnection;

namespace {

QString StoredHash() {
    return QSettings(TmodData::SettingsPath(), QSettings::IniFormat)
        .value(QStringLiteral("Database/Structure"))
        .toString();
}

class TmodDataTest : public testing::Test {
protected:
    void SetUp() override { QDir(TmodData::DataFolder()).removeRecursively(); }
    void TearDown() override { QDir(TmodData::DataFolder()).removeRecursively(); }

    // one program start: the first request for the connection
    static bool Start(bool* AChecked = nullptr) {
        TmodData module;
        InvDBConnection* conn = module.GetConnection();
        if (AChecked)
            *AChecked = module.StructureChecked();
        return conn && conn->PSTableExists(QStringLiteral("tblPatienten"), true);
    }
};

TEST(HashLittleTest, KnownValues) {
    EXPECT_EQ(hashlittle("", 0, 0), 0xdeadbeefu);
    EXPECT_EQ(hashlittle("", 0, 0xdeadbeef), 0xbd5b7ddeu);
    EXPECT_EQ(hashlittle("Four score and seven years ago", 30, 0), 0x17770551u);
    EXPECT_EQ(hashlittle("Four score and seven years ago", 30, 1), 0xcd628161u);
}

TEST(StructureHashTest, IsTakenOverTheUtf16BytesAsEightDigits) {
    const QString text = QStringLiteral("T:a\r\n");
    EXPECT_EQ(TmodData::StructureHash(text),
              QStringLiteral("%1").arg(hashlittle(text.utf16(), 10, 0), 8, 16, QLatin1Char('0')).toUpper());
    EXPECT_EQ(TmodData::StructureHash(QString()), QStringLiteral("DEADBEEF"));
    EXPECT_NE(TmodData::StructureHash(QStringLiteral("a")), TmodData::StructureHash(QStringLiteral("A")));
}

TEST(LoadResourceTextTest, EndsEveryLineWithCarriageReturnAndLineFeed) {
    const QString text = TmodData::LoadResourceText(QStringLiteral("DBSTRUC"));
    ASSERT_TRUE(text.startsWith(
        QStringLiteral("[Header]\r\nExportFormatVersion=3\r\n[HeaderEnd]\r\n\r\n\r\nT:sysConfig\r\n")));
    EXPECT_TRUE(text.endsWith(QStringLiteral("I:iTPTID;P;TPTID\r\n")));
    EXPECT_FALSE(text.contains(QStringLiteral("\n\n")));
    EXPECT_EQ(text, norvik::StructureText::JoinLines(norvik::StructureText::SplitLines(text)));
    EXPECT_EQ(TmodData::LoadResourceText(QStringLiteral("NOSUCHRESOURCE")), QString());
}

TEST(LoadResourceTextTest, BuiltInStructureHasItsTablesInOrder) {
    QStringList tables;
    for (const QString& line :
         norvik::StructureText::SplitLines(TmodData::LoadResourceText(QStringLiteral("DBSTRUC")))) {
        if (line.startsWith(QLatin1String("T:")))
            tables.append(line.mid(2));
    }
    EXPECT_EQ(tables, (QStringList{QStringLiteral("sysConfig"), QStringLiteral("sysSystems"),
                                   QStringLiteral("sysTableIDs"), QStringLiteral("tblAdressen"),
                                   QStringLiteral("tblDokumente"), QStringLiteral("tblPatienten"),
                                   QStringLiteral("tblTherapeuten")}));
}

TEST_F(TmodDataTest, FirstStartCreatesFolderSettingsAndDatabase) {
    bool checked = false;
    EXPECT_TRUE(Start(&checked));
    EXPECT_TRUE(checked);
    EXPECT_TRUE(QFile::exists(TmodData::DatabasePath()));
    EXPECT_EQ(StoredHash(), TmodData::StructureHash(TmodData::LoadResourceText(QStringLiteral("DBSTRUC"))));
    EXPECT_TRUE(Start(&checked));
    EXPECT_FALSE(checked);
}

TEST_F(TmodDataTest, DeletedDatabaseIsCreatedAgainAlthoughTheHashMatches) {
    ASSERT_TRUE(Start());
    QFile::remove(TmodData::DatabasePath());
    bool checked = false;
    EXPECT_TRUE(Start(&checked));
    EXPECT_TRUE(checked);
}

TEST_F(TmodDataTest, DeletedSettingsFileRunsTheCheckAndWritesTheHashAgain) {
    {
        TmodData module;
        norvik::InvDBConnection* conn = module.GetConnection();
        ASSERT_NE(conn, nullptr);
        auto values = norvik::TnvNamedValues::Create();
        values->Add(QStringLiteral("ExportFolder"), norvik::Variant(QStringLiteral("/srv/dame")));
        norvik::TnvDBConfig::SaveConfig(*conn, QStringLiteral("DAME"), QStringLiteral("SYSTEM"), *values);
    }
    QFile::remove(TmodData::SettingsPath());
    TmodData module;
    ASSERT_NE(module.GetConnection(), nullptr);
    EXPECT_TRUE(module.StructureChecked());
    EXPECT_EQ(StoredHash(), module.Hash());
    EXPECT_EQ(norvik::TnvDBConfig::LoadConfig(*module.GetConnection(), QStringLiteral("DAME"),
                                              QStringLiteral("SYSTEM"))
                  ->GetValueAsString(QStringLiteral("ExportFolder")),
              QStringLiteral("/srv/dame"));
}

TEST_F(TmodDataTest, DifferentStoredHashRunsTheCheck) {
    ASSERT_TRUE(Start());
    QSettings(TmodData::SettingsPath(), QSettings::IniFormat)
        .setValue(QStringLiteral("Database/Structure"), QStringLiteral("0000000X"));
    bool checked = false;
    EXPECT_TRUE(Start(&checked));
    EXPECT_TRUE(checked);
    EXPECT_NE(StoredHash(), QStringLiteral("0000000X"));
}

TEST_F(TmodDataTest, FailingOpenIsSilentAndLeavesTheHashForTheNextStart) {
    // a folder where the database file should be cannot be opened as a database
    QDir().mkpath(TmodData::DatabasePath());
    TmodData module;
    EXPECT_FALSE(module.OpenDatabase());
    EXPECT_EQ(StoredHash(), QString());
}

TEST(TmodDataPathsTest, FilesLieInTheSharedFolder) {
    const QString folder =
        QDir(qEnvironmentVariable("ORVENNA_COMMON_APPDATA")).filePath(QStringLiteral("quillnote"));
    EXPECT_EQ(TmodData::DataFolder(), folder);
    EXPECT_EQ(TmodData::SettingsPath(), folder + QStringLiteral("/quillnote.ini"));
    EXPECT_EQ(TmodData::DatabasePath(), folder + QStringLiteral("/quillnote.s3db"));
}

TEST(TmodDataFachgebieteTest, ListsTheSpecialtiesByKey) {
    TmodData module;
    ASSERT_EQ(module.slTPTFachgebiete.size(), 11u);
    EXPECT_EQ(
        module.slTPTFachgebiete.front(),
        std::make_pair(QStringLiteral("13"), QStringLiteral("Facharzt für Physikalische Medizin (13)")));
    EXPECT_EQ(module.slTPTFachgebiete.at(3),
              std::make_pair(QStringLiteral("66"), QStringLiteral("LogopädIn (66)")));
    EXPECT_EQ(module.slTPTFachgebiete.back(),
              std::make_pair(QStringLiteral("99"), QStringLiteral("Andere Vertragspartner (99)")));
}

} // namespace

namespace {

// the first start after a program update writes the new fields at once, without a restart
TEST_F(TmodDataTest, FieldsAddedByTheCheckAreWrittenInTheSameRun) {
    QDir().mkpath(TmodData::DataFolder());
    {
        norvik::TnvDBConnection old;
        old.InitDirectSQLiteDatabase(TmodData::DatabasePath());
        old.SetConnected(true);
        old.PSExecuteStatement(QStringLiteral("CREATE TABLE tblPatienten (PATID INT NOT NULL PRIMARY KEY, "
                                              "PATVisibleState INT DEFAULT 0, PATSuchname VARCHAR(60))"));
    }
    TmodData module;
    norvik::InvDBConnection* conn = module.GetConnection();
    ASSERT_NE(conn, nullptr);
    auto helper = norvik::TnvInsertUpdateHelper::CreateAndInsert(*conn, QStringLiteral("tblPatienten"));
    helper->AddField(QStringLiteral("PATSuchname"), norvik::Variant(QStringLiteral("Muster Eva (150580)")));
    helper->AddField(QStringLiteral("PATSVNR"), norvik::Variant(QStringLiteral("1234150580")));
    helper->Execute();
    EXPECT_EQ(
        conn->PSQueryValue(QStringLiteral("SELECT PATSVNR FROM tblPatienten"), norvik::Variant()).toString(),
        QStringLiteral("1234150580"));
    // a table the check created is filtered by its visibility state like the others
    EXPECT_EQ(conn->PSGetDeleteFlagKindByTableName(QStringLiteral("tblTherapeuten")),
              norvik::dfkVisibleState);
}

} // namespace
