#include "TnvTableInfo.h"

#include "DBExceptions.h"
#include "DBTestDatabase.h"
#include "TableInfoFunctions.h"

#include <gtest/gtest.h>
#include <ostream>

using namespace norvik;
using dbtest::DBTestDatabase;

namespace {

struct SystemFieldCase {
    const char16_t* field;
    const char16_t* prefix;
    bool isSystem;
};

// names the case in test output
void PrintTo(const SystemFieldCase& c, std::ostream* os) {
    *os << QString::fromUtf16(c.field).toStdString();
}

class SystemFieldTest : public ::testing::TestWithParam<SystemFieldCase> {};

TEST_P(SystemFieldTest, IsRecognised) {
    const SystemFieldCase& c = GetParam();
    TnvFieldInfo field(QString::fromUtf16(c.field), ftInteger, 0, QString(), false);
    field.EvalSystemFieldState(QString::fromUtf16(c.prefix));
    EXPECT_EQ(field.IsSystemField(), c.isSystem) << QString::fromUtf16(c.field).toStdString();
}

INSTANTIATE_TEST_SUITE_P(Names, SystemFieldTest,
                         ::testing::Values(SystemFieldCase{u"ADRID", u"ADR", true},
                                           SystemFieldCase{u"ADRIDArzt", u"ADR", false},
                                           SystemFieldCase{u"ADROwner", u"ADR", true},
                                           SystemFieldCase{u"ADRAnlageam", u"ADR", true},
                                           SystemFieldCase{u"adrVISIBLESTATE", u"ADR", true},
                                           SystemFieldCase{u"PATID", u"DOC", false},
                                           SystemFieldCase{u"ADRAenderungVon", u"ADR", true},
                                           SystemFieldCase{u"ADRDeleted", u"ADR", true},
                                           SystemFieldCase{u"ADRUpdate", u"ADR", true},
                                           SystemFieldCase{u"ADRName", u"ADR", false},
                                           SystemFieldCase{u"AD", u"ADR", false}));

TEST(TnvTableInfoByHand, KeepsFieldsInOrderAndFindsThemInAnyCase) {
    TnvTableInfo info(QStringLiteral("tblAdressen"));
    info.SetPrefix(QStringLiteral("ADR"));
    info.AddField(QStringLiteral("ADRID"), ftInteger, 1, QString(), false);
    info.AddField(QStringLiteral("ADRName"), ftWideString, 80, QString(), false);
    info.AddIndex(std::make_unique<TnvIndexInfo>(QStringLiteral("iADRID"), QStringLiteral("ADRID"),
                                                 TIndexOptions(ixPrimary | ixUnique)));
    ASSERT_EQ(info.FieldCount(), 2);
    EXPECT_EQ(info.Field(0).FieldName(), QStringLiteral("ADRID"));
    EXPECT_TRUE(info.Field(0).IsSystemField());
    EXPECT_TRUE(info.FieldByName(QStringLiteral("adrname")).IsUnicode());
    EXPECT_EQ(info.IndexByName(QStringLiteral("IADRID")).Fields(), QStringLiteral("ADRID"));
    try {
        info.FieldByName(QStringLiteral("ADRFehlt"));
        FAIL();
    } catch (const EDBUtilsException& e) {
        EXPECT_EQ(e.message(), QStringLiteral("Field ADRFehlt not found in table tblAdressen"));
    }
    EXPECT_THROW(info.IndexByName(QStringLiteral("iFehlt")), EDBUtilsException);

    const auto clone = info.Clone();
    EXPECT_EQ(clone->FieldCount(), 2);
    EXPECT_EQ(clone->IndexCount(), 1);
    EXPECT_EQ(clone->Prefix(), QStringLiteral("ADR"));
}

TEST(TnvTableInfoByHand, ExtendedRightsAskForTheirFields) {
    TnvTableInfo info(QStringLiteral("tblAdressen"));
    info.SetPrefix(QStringLiteral("ADR"));
    info.AddField(QStringLiteral("ADRRead"), ftInteger, 1, QString(), false);
    info.AddField(QStringLiteral("ADRUpdate"), ftInteger, 1, QString(), false);
    EXPECT_TRUE(info.SupportsExtendedRights(imRead));
    // the write right is looked for as <prefix>Write, which the tables do not have
    EXPECT_FALSE(info.SupportsExtendedRights(imWrite));
    EXPECT_FALSE(info.SupportsExtendedRights(imOwner));
    try {
        info.SupportsExtendedRights(imAny);
        FAIL();
    } catch (const EDBUtilsException& e) {
        EXPECT_EQ(e.message(), QStringLiteral("Rechteabfrage mit diesem Typ nicht möglich"));
    }
}

TEST(TnvTableInfoRead, AnEmptyTableStillYieldsItsFields) {
    DBTestDatabase db;
    TnvTableInfo info(db.Conn(), QStringLiteral("tblDokumente"));
    EXPECT_EQ(info.Prefix(), QStringLiteral("DOC"));
    ASSERT_EQ(info.FieldCount(), 5);
    EXPECT_EQ(info.Field(1).FieldName(), QStringLiteral("PATID"));
    EXPECT_FALSE(info.Field(1).IsSystemField());
    EXPECT_TRUE(info.FieldByName(QStringLiteral("DOCID")).IsSystemField());
    EXPECT_EQ(info.FieldByName(QStringLiteral("DOCTitel")).DataType(), ftString);
    EXPECT_EQ(info.FieldByName(QStringLiteral("DOCTitel")).Size(), 40);
}

TEST(TnvTableInfoRead, TablesAreReadAtConnect) {
    DBTestDatabase db;
    TnvTableInfo* info = LookupTableInfo(db.Conn(), QStringLiteral("TBLPATIENTEN"));
    ASSERT_NE(info, nullptr);
    EXPECT_EQ(info->Prefix(), QStringLiteral("PAT"));
    EXPECT_EQ(info->FieldByName(QStringLiteral("PATName")).Size(), 20);
    EXPECT_EQ(info->FieldByName(QStringLiteral("PATID")).Size(), 1);
    EXPECT_EQ(info->FieldByName(QStringLiteral("PATVisibleState")).ADefault(), QStringLiteral("0"));
    EXPECT_EQ(info->FieldByName(QStringLiteral("PATDeleted")).ADefault(), QStringLiteral("'N'"));

    struct TypeCase {
        const char16_t* field;
        TFieldType type;
    };
    for (const TypeCase& c : {TypeCase{u"PATID", ftInteger}, TypeCase{u"PATAnlageAm", ftDateTime},
                              TypeCase{u"PATGewicht", ftFloat}, TypeCase{u"PATBild", ftBlob},
                              TypeCase{u"PATNotiz", ftMemo}, TypeCase{u"PATName", ftString}})
        EXPECT_EQ(info->FieldByName(QString::fromUtf16(c.field)).DataType(), c.type)
            << QString::fromUtf16(c.field).toStdString();
    EXPECT_EQ(LookupTableInfo(db.Conn(), QStringLiteral("tblNeu")), nullptr);
}

TEST(TnvTableInfoRead, ATableCreatedLaterIsReadOnDemand) {
    DBTestDatabase db;
    db.Exec(QStringLiteral("CREATE TABLE tblNeu(NEUID INT, NEUText VARCHAR(5))"));
    EXPECT_EQ(LookupTableInfo(db.Conn(), QStringLiteral("tblNeu")), nullptr);
    EXPECT_TRUE(FieldExists(db.Conn(), QStringLiteral("tblNeu"), QStringLiteral("NEUText")));
    EXPECT_EQ(GetFieldType(db.Conn(), QStringLiteral("tblNeu"), QStringLiteral("NEUID")), ftInteger);
    EXPECT_THROW(GetFieldType(db.Conn(), QStringLiteral("tblNeu"), QStringLiteral("NEUFehlt")),
                 EDBUtilsException);
    db.Exec(QStringLiteral("ALTER TABLE tblNeu ADD NEUMehr INT"));
    EXPECT_FALSE(FieldExists(db.Conn(), QStringLiteral("tblNeu"), QStringLiteral("NEUMehr")));
    EXPECT_TRUE(
        GetTableInfo(db.Conn(), QStringLiteral("tblNeu"), true).FieldExists(QStringLiteral("NEUMehr")));
}

TEST(TnvTableInfoRead, ASizeThatIsNoNumberIsRefused) {
    DBTestDatabase db;
    db.Exec(QStringLiteral("CREATE TABLE tblKaputt(KAPText VARCHAR(10, 2))"));
    TnvTableInfoList list;
    try {
        ReadAllSQLiteTableInfos(db.Conn(), list);
        FAIL();
    } catch (const Exception& e) {
        EXPECT_EQ(e.message(), QStringLiteral("Was treibst für an schaß?"));
    }
}

} // namespace
