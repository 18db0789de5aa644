#include "TnvInsertUpdateHelper.h"

#include "BlobCompression.h"
#include "DBExceptions.h"
#include "DBTestDatabase.h"
#include "FixedClock.h"
#include "InsertUpdateRoutines.h"
#include "TRepDBChangeBlock.h"
#include "TnvDBGlobals.h"
#include "TnvRecordReader.h"

#include <gtest/gtest.h>

using namespace norvik;
using dbtest::DBTestDatabase;

namespace {

class TnvInsertUpdateHelperTest : public ::testing::Test {
protected:
    testsupport::FixedClock clock{"2024-03-01 14:30:05"};
    DBTestDatabase db;

    void SetUp() override { TnvDBGlobals::CurrentUserID = 42; }
    void TearDown() override { TnvDBGlobals::CurrentUserID = 0; }

    InvNamedValuesPtr Patient(qint64 AID) {
        return TnvRecordReader::ReadRecord(
            db.Conn(), QStringLiteral("SELECT * FROM tblPatienten WHERE PATID=%1").arg(AID));
    }
    QString Text(const QString& ASQL) { return db.Conn().PSQueryValue(ASQL, Variant()).toString(); }
};

TEST(TnvInsertUpdateHelperText, BuildsStatementsWithoutAConnection) {
    TnvInsertUpdateHelper helper(QStringLiteral("tblAdressen"), QStringLiteral("ADR"));
    helper.AddField(QStringLiteral("ADRName"), Variant(QStringLiteral("O'Neill")));
    helper.AddField(QStringLiteral("ADRAlter"), Variant(QStringLiteral("42")), fkInteger);
    helper.AddField(QStringLiteral("ADRGewicht"), Variant(QStringLiteral("72,5")), fkFloat);
    helper.AddField(QStringLiteral("ADRGeboren"), Variant(), fkDate);
    helper.AddField(QStringLiteral("ADRNull"), Variant::null(), fkInteger);
    EXPECT_EQ(helper.SQLInsert(),
              QStringLiteral("INSERT INTO tblAdressen (ADRName, ADRAlter, ADRGewicht, ADRGeboren, ADRNull) "
                             "VALUES('O''Neill', 42, 72.5, '1899-12-30 00:00:00', 0)"));
    EXPECT_EQ(helper.FieldList().at(0).FieldDataCB, QStringLiteral("O''Neill"));
    EXPECT_EQ(helper.FieldList().at(3).FieldDataCB, QStringLiteral("30.12.1899"));
}

TEST(TnvInsertUpdateHelperText, UpdateJoinsKeyAndExternalFilter) {
    TnvInsertUpdateHelper helper(QStringLiteral("tblAdressen"), QStringLiteral("ADR"));
    helper.AddField(QStringLiteral("ADRName"), Variant(QStringLiteral("Huber")));
    EXPECT_THROW(helper.SQLUpdate(QString()), EDBUtilsException);
    helper.SetKeyFields(QStringLiteral("ADRID"));
    helper.SetKeyValues(QStringLiteral("10000001"));
    EXPECT_EQ(helper.KeyFilter(), QStringLiteral("(ADRID=10000001)"));
    EXPECT_EQ(helper.LastID(), 10000001);
    helper.SetExternalFilter(QStringLiteral("ADRVisibleState=0"));
    EXPECT_EQ(helper.SQLUpdate(helper.KeyFilter()),
              QStringLiteral(
                  "UPDATE tblAdressen SET ADRName = 'Huber' WHERE (ADRID=10000001) AND ADRVisibleState=0"));
    EXPECT_EQ(
        helper.SQLDelete(helper.KeyFilter()),
        QStringLiteral("UPDATE tblAdressen SET ADRDeleted='J' WHERE (ADRID=10000001) AND ADRVisibleState=0"));
    helper.SetPhysicalDelete(true);
    EXPECT_EQ(helper.SQLDelete(helper.KeyFilter()),
              QStringLiteral("DELETE FROM tblAdressen WHERE (ADRID=10000001)"));
}

TEST(TnvInsertUpdateHelperText, AKeyOfTwoFields) {
    TnvInsertUpdateHelper helper(QStringLiteral("sysConfig"), QString());
    helper.SetKeyFields(QStringLiteral("CFGUser,CFGCode"));
    helper.SetKeyValues(QStringLiteral("'SYSTEM','DAME'"));
    EXPECT_EQ(helper.KeyFilter(), QStringLiteral("(CFGUser='SYSTEM' AND CFGCode='DAME')"));
}

TEST_F(TnvInsertUpdateHelperTest, AnInsertGetsIDStampsAndFlags) {
    auto helper = TnvInsertUpdateHelper::CreateAndInsert(db.Conn(), QStringLiteral("tblPatienten"));
    helper->AddField(QStringLiteral("PATName"), Variant(QStringLiteral("Müller")));
    helper->AddField(QStringLiteral("PATGibtsNicht"), Variant(QStringLiteral("x")));
    helper->AddField(QStringLiteral("PATGeburtsdatum"), Variant(QStringLiteral("3.1.1980")));
    helper->AddField(QStringLiteral("PATGewicht"), Variant(QStringLiteral("72,5")));
    EXPECT_FALSE(helper->FieldExists(QStringLiteral("PATGibtsNicht")));
    ASSERT_TRUE(helper->Execute());
    EXPECT_EQ(helper->LastID(), 10000001);

    const auto row = Patient(10000001);
    EXPECT_EQ(row->GetAsString(QStringLiteral("PATName")), QStringLiteral("Müller"));
    EXPECT_EQ(row->GetAsInteger(QStringLiteral("PATVisibleState")), 0);
    EXPECT_EQ(row->GetAsString(QStringLiteral("PATDeleted")), QStringLiteral("N"));
    EXPECT_EQ(row->GetAsInteger(QStringLiteral("PATAnlageVon")), 42);
    EXPECT_EQ(row->GetAsInteger(QStringLiteral("PATAenderungVon")), 42);
    EXPECT_DOUBLE_EQ(row->GetAsDouble(QStringLiteral("PATGewicht")), 72.5);
    EXPECT_EQ(Text(QStringLiteral("SELECT PATAnlageAm || '' FROM tblPatienten")),
              QStringLiteral("2024-03-01 14:30:05"));
    EXPECT_EQ(Text(QStringLiteral("SELECT PATGeburtsdatum || '' FROM tblPatienten")),
              QStringLiteral("1980-01-03 00:00:00"));
    EXPECT_FALSE(db.Conn().PSInTransaction());
}

TEST_F(TnvInsertUpdateHelperTest, AKeyCollisionCostsANumberNotTheRow) {
    db.Exec(QStringLiteral("INSERT INTO tblPatienten (PATID, PATName) VALUES(10000001, 'Vorher')"));
    auto helper = TnvInsertUpdateHelper::CreateAndInsert(db.Conn(), QStringLiteral("tblPatienten"));
    helper->AddField(QStringLiteral("PATName"), Variant(QStringLiteral("Neu")));
    ASSERT_TRUE(helper->Execute());
    EXPECT_EQ(helper->LastID(), 10000002);
    EXPECT_EQ(Patient(10000002)->GetAsString(QStringLiteral("PATName")), QStringLiteral("Neu"));
    // the change-block text keeps the ID first taken
    EXPECT_EQ(helper->CreateDBChangeBlock()->Data.at(0).Value, QStringLiteral("10000001"));
    // a second run of the same object starts from the changed ID
    EXPECT_NE(helper->SQLInsert().indexOf(QLatin1String("10000002")), -1);
    ASSERT_TRUE(helper->Execute());
    EXPECT_EQ(helper->LastID(), 10000003);
    EXPECT_EQ(db.Count(QStringLiteral("SELECT Count(*) FROM tblPatienten")), 3);
}

TEST_F(TnvInsertUpdateHelperTest, AKeyCollisionIsSeenThroughAUniqueIndexOnTheKey) {
    // tables of the structure definition carry a unique index on the key besides the key
    db.Exec(QStringLiteral("CREATE UNIQUE INDEX iPATID ON tblPatienten(PATID)"));
    db.Exec(QStringLiteral("INSERT INTO tblPatienten (PATID, PATName) VALUES(10000001, 'Vorher')"));
    auto helper = TnvInsertUpdateHelper::CreateAndInsert(db.Conn(), QStringLiteral("tblPatienten"));
    helper->AddField(QStringLiteral("PATName"), Variant(QStringLiteral("Neu")));
    ASSERT_TRUE(helper->Execute());
    EXPECT_EQ(helper->LastID(), 10000002);
}

TEST_F(TnvInsertUpdateHelperTest, AUniqueCollisionOutsideTheKeyIsNoKeyCollision) {
    db.Exec(QStringLiteral("CREATE UNIQUE INDEX iPATName ON tblPatienten(PATName)"));
    db.Exec(QStringLiteral("INSERT INTO tblPatienten (PATID, PATName) VALUES(1, 'Huber')"));
    auto helper = TnvInsertUpdateHelper::CreateAndInsert(db.Conn(), QStringLiteral("tblPatienten"));
    helper->AddField(QStringLiteral("PATName"), Variant(QStringLiteral("Huber")));
    EXPECT_THROW(helper->Execute(), std::exception);
    // no number was spent on a retry
    EXPECT_EQ(db.Conn().PSGenID(QStringLiteral("tblPatienten")), 10000002);
}

TEST_F(TnvInsertUpdateHelperTest, AProvidedIDIsNotReplaced) {
    db.Exec(QStringLiteral("INSERT INTO tblPatienten (PATID, PATName) VALUES(5, 'Vorher')"));
    auto helper = TnvInsertUpdateHelper::CreateAndInsertWithID(db.Conn(), QStringLiteral("tblPatienten"), 5);
    EXPECT_TRUE(helper->IDProvided());
    EXPECT_THROW(helper->Execute(), std::exception);
    EXPECT_FALSE(db.Conn().PSInTransaction());
    EXPECT_EQ(db.Count(QStringLiteral("SELECT Count(*) FROM tblPatienten")), 1);
}

TEST_F(TnvInsertUpdateHelperTest, AnUpdateOfNoRowFailsAfterThreeAttempts) {
    auto helper = TnvInsertUpdateHelper::CreateAndUpdate(db.Conn(), QStringLiteral("tblPatienten"),
                                                         QStringLiteral("PATID"), QStringLiteral("99"));
    helper->AddField(QStringLiteral("PATName"), Variant(QStringLiteral("Niemand")));
    EXPECT_FALSE(helper->Execute());
    EXPECT_FALSE(db.Conn().PSInTransaction());
}

TEST_F(TnvInsertUpdateHelperTest, AModifyWithoutKeyIsRefused) {
    TnvInsertUpdateHelper helper(db.Conn(), QStringLiteral("tblPatienten"));
    helper.AddField(QStringLiteral("PATName"), Variant(QStringLiteral("Alle")));
    try {
        helper.Execute();
        FAIL();
    } catch (const EDBUtilsException& e) {
        EXPECT_EQ(e.message(), QStringLiteral("SQL couldn't be created: no keyfilter given"));
    }
    EXPECT_FALSE(db.Conn().PSInTransaction());
}

TEST_F(TnvInsertUpdateHelperTest, ASoftDeleteSetsBothFlagsAndTheChangeStamps) {
    db.Exec(QStringLiteral("INSERT INTO tblPatienten (PATID, PATName, PATVisibleState, PATDeleted) "
                           "VALUES(10000001, 'Huber', 0, 'N')"));
    TnvDBGlobals::CurrentUserID = 7;
    ASSERT_TRUE(DeleteRecord(db.Conn(), QStringLiteral("tblPatienten"), QStringLiteral("PATID"),
                             QStringLiteral("10000001")));
    const auto row = Patient(10000001);
    EXPECT_EQ(row->GetAsInteger(QStringLiteral("PATVisibleState")), 1);
    EXPECT_EQ(row->GetAsString(QStringLiteral("PATDeleted")), QStringLiteral("J"));
    EXPECT_EQ(row->GetAsInteger(QStringLiteral("PATAenderungVon")), 7);
    EXPECT_EQ(Text(QStringLiteral("SELECT PATAenderungAm || '' FROM tblPatienten")),
              QStringLiteral("2024-03-01 14:30:05"));
}

TEST_F(TnvInsertUpdateHelperTest, APhysicalDeleteRemovesTheRow) {
    db.Exec(QStringLiteral("INSERT INTO tblPatienten (PATID, PATName) VALUES(10000001, 'Huber')"));
    auto helper = TnvInsertUpdateHelper::CreateAndDelete(
        db.Conn(), QStringLiteral("tblPatienten"), QStringLiteral("PATID"), QStringLiteral("10000001"), true);
    ASSERT_TRUE(helper->Execute());
    EXPECT_EQ(db.Count(QStringLiteral("SELECT Count(*) FROM tblPatienten")), 0);
    EXPECT_EQ(helper->CreateDBChangeBlock()->Action, QStringLiteral("P"));
}

TEST_F(TnvInsertUpdateHelperTest, InsertUpdateDecidesByLooking) {
    auto first = TnvInsertUpdateHelper::CreateAndInsertUpdate(
        db.Conn(), QStringLiteral("tblPatienten"), QStringLiteral("PATName"), QStringLiteral("'Huber'"));
    EXPECT_EQ(first->UpdateKind(), ukInsert);
    first->AddField(QStringLiteral("PATName"), Variant(QStringLiteral("Huber")));
    ASSERT_TRUE(first->Execute());

    auto second = TnvInsertUpdateHelper::CreateAndInsertUpdate(
        db.Conn(), QStringLiteral("tblPatienten"), QStringLiteral("PATName"), QStringLiteral("'Huber'"));
    EXPECT_EQ(second->UpdateKind(), ukModify);
    EXPECT_EQ(second->KeyFilter(), QStringLiteral("(PATID=10000001)"));
    second->AddField(QStringLiteral("PATGewicht"), Variant(80.25));
    ASSERT_TRUE(second->Execute());
    EXPECT_DOUBLE_EQ(Patient(10000001)->GetAsDouble(QStringLiteral("PATGewicht")), 80.25);
    EXPECT_EQ(db.Count(QStringLiteral("SELECT Count(*) FROM tblPatienten")), 1);
}

TEST_F(TnvInsertUpdateHelperTest, TooLongTextRaisesOrIsCut) {
    auto helper = TnvInsertUpdateHelper::CreateAndInsert(db.Conn(), QStringLiteral("tblPatienten"));
    const QString name = QString(25, QLatin1Char('x'));
    try {
        helper->AddField(QStringLiteral("PATName"), Variant(name), fkUnknown, true);
        FAIL();
    } catch (const EnvDBException& e) {
        EXPECT_EQ(e.message(),
                  QStringLiteral(
                      "Der Inhalt des Feldes PATName überschreitet die maximale Länge von 20 Zeichen um 5 "
                      "Zeichen."));
    }
    helper->SetRaiseExceptionOnFieldExtension(false);
    helper->AddField(QStringLiteral("PATName"), Variant(name), fkUnknown, true);
    ASSERT_TRUE(helper->Execute());
    EXPECT_EQ(Patient(helper->LastID())->GetAsString(QStringLiteral("PATName")),
              QString(20, QLatin1Char('x')));
}

TEST_F(TnvInsertUpdateHelperTest, BlobsAndMemosGoAsParameters) {
    auto helper = TnvInsertUpdateHelper::CreateAndInsert(db.Conn(), QStringLiteral("tblPatienten"));
    helper->AddField(QStringLiteral("PATBild"), Variant(QByteArray("\x89PNG\x00", 5)));
    helper->AddFieldMemory(QStringLiteral("PATNotiz"), QByteArray("Zeile 1\r\nZeile 2"), ftMemo);
    TnvParam* name = helper->AddField(QStringLiteral("PATName"));
    ASSERT_NE(name, nullptr);
    name->SetValue(Variant(QStringLiteral("Parameter")));
    ASSERT_TRUE(helper->Execute());
    const auto row = Patient(helper->LastID());
    EXPECT_EQ(row->GetAsBytes(QStringLiteral("PATBild")), QByteArray("\x89PNG\x00", 5));
    EXPECT_EQ(row->GetAsString(QStringLiteral("PATNotiz")), QStringLiteral("Zeile 1\r\nZeile 2"));
    EXPECT_EQ(row->GetAsString(QStringLiteral("PATName")), QStringLiteral("Parameter"));

    const auto block = helper->CreateDBChangeBlock();
    EXPECT_EQ(block->Action, QStringLiteral("I"));
    EXPECT_EQ(block->User, 42);
    bool sawMemory = false;
    for (const TRepDataItem& item : block->Data)
        sawMemory = sawMemory || (item.Name == QLatin1String("PATBild") && item.Memory.has_value());
    EXPECT_TRUE(sawMemory);
}

TEST_F(TnvInsertUpdateHelperTest, CompressedTextGoesIntoABlob) {
    auto helper = TnvInsertUpdateHelper::CreateAndInsert(db.Conn(), QStringLiteral("tblPatienten"));
    const QString text = QStringLiteral("ExportFolder=C:\\Daten\\Out\r\n").repeated(20);
    helper->AddTextToBlobCompressed(QStringLiteral("PATBild"), text, 9);
    ASSERT_TRUE(helper->Execute());
    const QByteArray stored = Patient(helper->LastID())->GetAsBytes(QStringLiteral("PATBild"));
    EXPECT_TRUE(stored.startsWith("CMP2"));
    EXPECT_LT(stored.size(), text.size());
    EXPECT_EQ(BlobCompression::Decompress(stored), text.toLatin1());
}

TEST_F(TnvInsertUpdateHelperTest, IgnoringExistingFieldsKeepsTheFirstValue) {
    auto helper = TnvInsertUpdateHelper::CreateAndInsert(db.Conn(), QStringLiteral("tblPatienten"));
    helper->SetIgnoreExistingFields(true);
    helper->AddField(QStringLiteral("PATName"), Variant(QStringLiteral("Erster")));
    helper->AddField(QStringLiteral("patname"), Variant(QStringLiteral("Zweiter")));
    EXPECT_EQ(helper->AddField(QStringLiteral("PATNAME")), nullptr);
    ASSERT_TRUE(helper->Execute());
    EXPECT_EQ(Patient(helper->LastID())->GetAsString(QStringLiteral("PATName")), QStringLiteral("Erster"));
}

TEST_F(TnvInsertUpdateHelperTest, TheRoutinesInsertAndUpdate) {
    const qint64 id = InsertRecord(db.Conn(), QStringLiteral("tblPatienten"),
                                   {QStringLiteral("PATName"), QStringLiteral("PATGewicht")},
                                   {Variant(QStringLiteral("Huber")), Variant(70)});
    EXPECT_EQ(id, 10000001);
    EXPECT_TRUE(UpdateRecord(db.Conn(), QStringLiteral("tblPatienten"), QStringLiteral("PATID"),
                             QString::number(id), {QStringLiteral("PATName")},
                             {Variant(QStringLiteral("Huber-Maier"))}));
    EXPECT_EQ(Patient(id)->GetAsString(QStringLiteral("PATName")), QStringLiteral("Huber-Maier"));
    EXPECT_THROW(InsertRecord(db.Conn(), QStringLiteral("tblPatienten"), {QStringLiteral("PATName")}, {}),
                 EDBUtilsException);
}

TEST_F(TnvInsertUpdateHelperTest, WithReplicationAMissingBlockTableRollsTheRowBack) {
    db.Exec(QStringLiteral("CREATE TABLE sysSystems(SYSID INT PRIMARY KEY, SYSMySystem VARCHAR(1), "
                           "SYSDeleteTimestamp DATETIME)"));
    db.Exec(QStringLiteral("INSERT INTO sysSystems VALUES(1, 'J', NULL)"));
    db.Exec(QStringLiteral("INSERT INTO sysSystems VALUES(2, 'N', NULL)"));
    db.Reconnect();
    ASSERT_TRUE(db.Conn().PSReplicate(QStringLiteral("tblPatienten")));
    auto helper = TnvInsertUpdateHelper::CreateAndInsert(db.Conn(), QStringLiteral("tblPatienten"));
    helper->AddField(QStringLiteral("PATName"), Variant(QStringLiteral("Huber")));
    EXPECT_THROW(helper->Execute(), std::exception);
    EXPECT_FALSE(db.Conn().PSInTransaction());
    EXPECT_EQ(db.Count(QStringLiteral("SELECT Count(*) FROM tblPatienten")), 0);
}

TEST_F(TnvInsertUpdateHelperTest, WithReplicationEachWriteLeavesABlock) {
    db.Exec(QStringLiteral("CREATE TABLE sysSystems(SYSID INT PRIMARY KEY, SYSMySystem VARCHAR(1), "
                           "SYSDeleteTimestamp DATETIME)"));
    db.Exec(QStringLiteral("INSERT INTO sysSystems VALUES(1, 'J', NULL)"));
    db.Exec(QStringLiteral("INSERT INTO sysSystems VALUES(2, 'N', NULL)"));
    db.Exec(
        QStringLiteral("CREATE TABLE sysREChangeBlocks(RECID INT PRIMARY KEY, RECTimeStamp DATETIME, "
                       "RECProcessed VARCHAR(1), USRID INT, RECSystem INT, RECTemp INT, RECFilter1 INT, "
                       "RECLocation VARCHAR(64), RECName VARCHAR(255), RECAction VARCHAR(1), RECData IMAGE, "
                       "RECYear INT, RECMonth INT, RECDay INT)"));
    db.Reconnect();
    auto helper = TnvInsertUpdateHelper::CreateAndInsert(db.Conn(), QStringLiteral("tblPatienten"));
    helper->AddField(QStringLiteral("PATName"), Variant(QStringLiteral("Huber")));
    ASSERT_TRUE(helper->Execute());
    const auto block =
        TnvRecordReader::ReadRecord(db.Conn(), QStringLiteral("SELECT * FROM sysREChangeBlocks"));
    EXPECT_EQ(block->GetAsIdentifier(QStringLiteral("RECID")), 10000001);
    EXPECT_EQ(block->GetAsIdentifier(QStringLiteral("RECSystem")), 1);
    EXPECT_EQ(block->GetAsString(QStringLiteral("RECAction")), QStringLiteral("I"));
    EXPECT_EQ(block->GetAsString(QStringLiteral("RECLocation")), QStringLiteral("tblPatienten"));
    EXPECT_EQ(block->GetAsString(QStringLiteral("RECName")), QStringLiteral("10000001"));
    EXPECT_EQ(block->GetAsInteger(QStringLiteral("RECYear")), 2024);
    const QByteArray data = BlobCompression::Decompress(block->GetAsBytes(QStringLiteral("RECData")));
    EXPECT_TRUE(data.contains("\"TRepDBChangeBlock\""));
    EXPECT_TRUE(data.contains("Huber"));
}

TEST_F(TnvInsertUpdateHelperTest, OnlyChangeBlocksCanBeSaved) {
    struct OtherBlock : TReplicationBaseClass {
        QString ClassName() const override { return QStringLiteral("OtherBlock"); }
    };
    try {
        db.Conn().PSSaveChangeBlock(OtherBlock());
        FAIL();
    } catch (const EnvReplicationException& e) {
        EXPECT_EQ(e.message(),
                  QStringLiteral("ARep is no TRepCustomChangeBlock. Please contact your administrator!"));
    }
}

} // namespace
