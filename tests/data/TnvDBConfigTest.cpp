#include "TnvDBConfig.h"

#include "BlobCompression.h"
#include "StructureTestDatabase.h"
#include "TnvParams.h"
#include "ZLIBUtils.h"

#include <gtest/gtest.h>

using namespace norvik;
using structuretest::StructureTestDatabase;

namespace {

class TnvDBConfigTest : public testing::Test {
protected:
    StructureTestDatabase db;

    void SetUp() override { db.Check(structuretest::BuiltInStructure()); }

    void Save(const QList<std::pair<QString, QString>>& AValues,
              const QString& ACode = QStringLiteral("DAME")) {
        auto values = TnvNamedValues::Create();
        for (const auto& [name, value] : AValues)
            values->Add(name, Variant(value));
        TnvDBConfig::SaveConfig(db.Conn(), ACode, QStringLiteral("SYSTEM"), *values);
    }

    QString Load(const QString& AName, const QString& ACode = QStringLiteral("DAME")) {
        return TnvDBConfig::LoadConfig(db.Conn(), ACode, QStringLiteral("SYSTEM"))
            ->GetValueAsString(AName, QStringLiteral("<none>"));
    }

    void StoreRaw(const QByteArray& AContent) {
        TnvParams params;
        params.AddValue(Variant(AContent));
        db.Conn().PSExecuteStatement(
            QStringLiteral(
                "INSERT INTO sysConfig (CFGUser, CFGCode, CFGContents) VALUES ('SYSTEM', 'RAW', ?)"),
            &params);
    }
};

TEST_F(TnvDBConfigTest, GroupWithoutRowLoadsEmpty) {
    EXPECT_EQ(TnvDBConfig::LoadConfig(db.Conn(), QStringLiteral("DAME"), QStringLiteral("SYSTEM"))->Count(),
              0);
}

struct EscapeCase {
    const char* title;
    const char16_t* saved;
    const char16_t* loaded;
};

class ConfigEscapeTest : public TnvDBConfigTest, public testing::WithParamInterface<EscapeCase> {};

// the writer escapes nothing while the reader undoes escapes
TEST_P(ConfigEscapeTest, ValueComesBackAsTheReaderUnderstandsIt) {
    Save({{QStringLiteral("ExportFolder"), QString::fromUtf16(GetParam().saved)}});
    EXPECT_EQ(Load(QStringLiteral("ExportFolder")), QString::fromUtf16(GetParam().loaded));
}

INSTANTIATE_TEST_SUITE_P(Values, ConfigEscapeTest,
                         testing::Values(EscapeCase{"PlainFolder", u"C:\\Daten\\Out", u"C:\\Daten\\Out"},
                                         EscapeCase{"CapitalN", u"C:\\Neu\\Out", u"C:\r\neu\\Out"},
                                         EscapeCase{"SmallN", u"C:\\neu", u"C:\r\neu"},
                                         EscapeCase{"NetworkPath", u"\\\\server\\share", u"\\server\\share"},
                                         EscapeCase{"Umlauts", u"Müller & Söhne", u"Müller & Söhne"},
                                         EscapeCase{"Equals", u"a=b", u"a=b"}, EscapeCase{"Empty", u"", u""}),
                         [](const testing::TestParamInfo<EscapeCase>& info) {
                             return std::string(info.param.title);
                         });

TEST_F(TnvDBConfigTest, SaveUpdatesTheRowAndKeepsGroupsApart) {
    Save({{QStringLiteral("ExportFolder"), QStringLiteral("/a")},
          {QStringLiteral("Executable"), QStringLiteral("x")}});
    Save({{QStringLiteral("ExportFolder"), QStringLiteral("/b")}});
    Save({{QStringLiteral("ExportFolder"), QStringLiteral("/c")}}, QStringLiteral("OTHER"));
    EXPECT_EQ(db.Count(QStringLiteral("SELECT COUNT(*) FROM sysConfig")), 2);
    EXPECT_EQ(Load(QStringLiteral("ExportFolder")), QStringLiteral("/b"));
    // values the caller did not hand over are gone
    EXPECT_EQ(Load(QStringLiteral("Executable")), QStringLiteral("<none>"));
    EXPECT_EQ(Load(QStringLiteral("exportfolder"), QStringLiteral("OTHER")), QStringLiteral("/c"));
}

TEST_F(TnvDBConfigTest, StoredTextIsPlainAnsiLines) {
    Save({{QStringLiteral("b"), QStringLiteral("Grüße")}, {QStringLiteral("a"), QStringLiteral("1")}});
    const Variant stored =
        db.Conn().PSQueryValue(QStringLiteral("SELECT CFGContents FROM sysConfig"), Variant());
    EXPECT_EQ(stored.toBytes(), QByteArray("a=1\r\nb=Gr\xfc\xdf"
                                           "e\r\n"));
}

TEST_F(TnvDBConfigTest, ValueWithLineBreakStandsOnSeveralLines) {
    Save({{QStringLiteral("a"), QStringLiteral("x\r\ny=z")}});
    EXPECT_EQ(Load(QStringLiteral("a")), QStringLiteral("x"));
    EXPECT_EQ(Load(QStringLiteral("y")), QStringLiteral("z"));
}

TEST_F(TnvDBConfigTest, CompressedRowIsReadAndStoredPlainAfterTheNextSave) {
    StoreRaw(
        ZLIBUtils::TextToBytes(QStringLiteral("ExportFolder=C:\\\\srv\r\nDOCXTemplate=vorlage.docx\r\n"), 9));
    EXPECT_TRUE(BlobCompression::IsCompressed(
        db.Conn().PSQueryValue(QStringLiteral("SELECT CFGContents FROM sysConfig"), Variant()).toBytes()));
    auto values = TnvDBConfig::LoadConfig(db.Conn(), QStringLiteral("RAW"), QStringLiteral("SYSTEM"));
    EXPECT_EQ(values->GetValueAsString(QStringLiteral("ExportFolder")), QStringLiteral("C:\\srv"));
    EXPECT_EQ(values->GetValueAsString(QStringLiteral("DOCXTemplate")), QStringLiteral("vorlage.docx"));
    TnvDBConfig::SaveConfig(db.Conn(), QStringLiteral("RAW"), QStringLiteral("SYSTEM"), *values);
    const QByteArray stored =
        db.Conn().PSQueryValue(QStringLiteral("SELECT CFGContents FROM sysConfig"), Variant()).toBytes();
    EXPECT_FALSE(BlobCompression::IsCompressed(stored));
    EXPECT_TRUE(stored.contains("ExportFolder=C:\\srv\r\n"));
}

TEST_F(TnvDBConfigTest, TextColumnAndByteOrderMarkAreRead) {
    db.Exec(QStringLiteral("INSERT INTO sysConfig VALUES ('SYSTEM', 'TEXT', 'a=1')"));
    EXPECT_EQ(Load(QStringLiteral("a"), QStringLiteral("TEXT")), QStringLiteral("1"));
    StoreRaw(QByteArray("\xef\xbb\xbf"
                        "a=Gr\xc3\xbc\xc3\x9f"
                        "e"));
    EXPECT_EQ(Load(QStringLiteral("a"), QStringLiteral("RAW")), QStringLiteral("Grüße"));
}

TEST_F(TnvDBConfigTest, DamagedCompressedRowRaises) {
    StoreRaw(QByteArray("CMP2\x10\x00\x00\x00garbage", 15));
    EXPECT_ANY_THROW(TnvDBConfig::LoadConfig(db.Conn(), QStringLiteral("RAW"), QStringLiteral("SYSTEM")));
}

TEST(ZLIBUtilsTest, VariantsBecomeText) {
    EXPECT_EQ(ZLIBUtils::VariantToText(Variant()), QString());
    EXPECT_EQ(ZLIBUtils::VariantToText(Variant::null()), QString());
    EXPECT_EQ(ZLIBUtils::VariantToText(Variant(QStringLiteral("a=b"))), QStringLiteral("a=b"));
    EXPECT_EQ(ZLIBUtils::VariantToText(Variant(ZLIBUtils::TextToBytes(QStringLiteral("Größe"), 6))),
              QStringLiteral("Größe"));
    EXPECT_EQ(ZLIBUtils::TextToBytes(QStringLiteral("Größe"), 0), QByteArray("Gr\xf6\xdf"
                                                                             "e"));
    // a stored size of zero gives no data
    EXPECT_EQ(ZLIBUtils::VariantToText(Variant(QByteArray("CMP2\0\0\0\0xyz", 11))), QString());
    try {
        ZLIBUtils::VariantToText(Variant(qint32(5)));
        FAIL() << "no exception";
    } catch (const ZLIBUtilException& e) {
        EXPECT_EQ(QString::fromUtf8(e.what()),
                  QStringLiteral(
                      "Ungültiger Datentyp für die Verarbeitung von Rohdaten! (nvUncompressVariantToBytes)"));
    }
}

} // namespace
