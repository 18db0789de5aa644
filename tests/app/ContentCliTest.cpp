#include "CliProcess.h"
#include "TestEnvironment.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace {

const QString Cli = QStringLiteral(ORVENNA_CLI_PATH);

QStringList Args(std::initializer_list<const char16_t*> values) {
    QStringList result;
    for (const char16_t* value : values)
        result.append(QString::fromUtf16(value));
    return result;
}

struct ContentCliCase {
    const char* title;
    QStringList arguments;
    const char16_t* out;
};

class ContentCliTest : public testing::TestWithParam<ContentCliCase> {};

QString Title(const testing::TestParamInfo<ContentCliCase>& info) {
    return QString::fromLatin1(info.param.title);
}

// the example letter's values: Frau Maria Muster, Hauptstraße 1, A-1010 Wien
QByteArray ExampleValues(const QString& outbox) {
    return QStringLiteral(
               R"({"CFGDaMeOutbox":"%1","ADRDaMeCode":"XYZ","TPTDaMeCode":"ABC","TPTDaMeFachgebiet":"PHY",
        "PATSVNr":"1234150580","PATGeburtstag":"1980-05-15","PATNachname":"Muster","PATVorname":"Maria",
        "PATTitel":"","PATPrivStrasse":"Hauptstraße 1","PATPrivOrtsname":"Wien","PATPrivPLZ":"1010",
        "AText":"Befund: gut.","AReason":"O'Neil"})")
        .arg(outbox)
        .toUtf8();
}

const QByteArray ExampleLine = QByteArrayLiteral(
    "UNA:+.? "
    "'UNB+ANSI:1+ABC+XYZ+260303+1405+1'UNH+0+MEDRPT:1:901:UN'BGM+PHY+++20260303++123415051980+19800515'"
    "NAD+PAT++Muster:Maria::Hauptstra\xdf"
    "e 1+++Wien++1010");

} // namespace

TEST_P(ContentCliTest, PrintsItsResult) {
    const ProcessRun run = runProgram(Cli, GetParam().arguments);
    EXPECT_EQ(run.outText(), QString::fromUtf16(GetParam().out));
    EXPECT_EQ(run.exitCode, 0);
}

INSTANTIATE_TEST_SUITE_P(SVNr, ContentCliTest,
                         testing::Values(ContentCliCase{"Valid", Args({u"svnr", u"1237010180"}),
                                                        u"format=true formatZero=true wizard=true\n"},
                                         ContentCliCase{"ZeroSerial", Args({u"svnr", u"0000150580"}),
                                                        u"format=false formatZero=true wizard=true\n"},
                                         ContentCliCase{"FourCharacters", Args({u"svnr", u"1234"}),
                                                        u"format=true formatZero=true wizard=false\n"},
                                         ContentCliCase{"WrongCheckDigit", Args({u"svnr", u"1238010180"}),
                                                        u"format=false formatZero=false wizard=false\n"},
                                         ContentCliCase{"NineDigits", Args({u"svnr", u"123701018"}),
                                                        u"format=false formatZero=false wizard=false\n"}),
                         [](const auto& info) { return Title(info).toStdString(); });

INSTANTIATE_TEST_SUITE_P(
    ZipCity, ContentCliTest,
    testing::Values(ContentCliCase{"Austrian", Args({u"zipcity", u"1010 Wien"}), u"A|1010|Wien\n"},
                    ContentCliCase{"Country", Args({u"zipcity", u"D-80331 München"}), u"D|80331|München\n"},
                    ContentCliCase{"DashInCity", Args({u"zipcity", u"5020 Salz-burg"}), u"A|5020|Salz\n"},
                    ContentCliCase{"Empty", Args({u"zipcity", u""}), u"||\n"}),
    [](const auto& info) { return Title(info).toStdString(); });

INSTANTIATE_TEST_SUITE_P(
    BirthDate, ContentCliTest,
    testing::Values(ContentCliCase{"LastCentury",
                                   Args({u"--now", u"2026-03-03 14:05:00", u"birthdate", u"1234010127"}),
                                   u"1927-01-01\n"},
                    ContentCliCase{"ThisYear",
                                   Args({u"--now", u"2026-03-03 14:05:00", u"birthdate", u"1234010126"}),
                                   u"2026-01-01\n"},
                    ContentCliCase{"SubstituteMonth", Args({u"birthdate", u"1234011390"}), u"0\n"},
                    ContentCliCase{"NineDigits", Args({u"birthdate", u"123401019"}), u"0\n"}),
    [](const auto& info) { return Title(info).toStdString(); });

TEST(ContentCliTest, PrepareShowsControlsAnswersAndMergeFields) {
    testsupport::TempDir dir;
    const QString therapists = dir.writeFile(
        QStringLiteral("t.json"),
        R"([{"TPTZusatzText1":"Zora","TPTZusatzText2":"PT","TPTDaMeFachgebiet":"PHY","TPTDaMeCode":"ME2"},
            {"TPTZusatzText1":"Anna","TPTZusatzText2":"PT","TPTDaMeFachgebiet":"PHY","TPTDaMeCode":"ME1"}])");
    const QString content = dir.writeFile(
        QStringLiteral("c.json"),
        QStringLiteral(R"({"patient":{"lastname":"Muster","firstname":"Eva","gender":"FEMALE","title":"Dr.",
            "ssnr":"1237010180","street":"Gasse 1\nStiege 2"},
            "referrer":{"name":"Dr. Huber","zipcity":"8010 Graz"},
            "referral":{"diagnosis":"Lumbalgie","start":"heute","end":"2026-03-30"},"presets":{"Q1":"b"}})")
            .toUtf8());
    const QString questions = QStringLiteral(
        R"({"questions":[{"name":"q1","description":"Frage","items":[{"code":"a","caption":"A"},{"code":"B","caption":"B"}]}]})");
    const ProcessRun run =
        runProgram(Cli,
                   {QStringLiteral("--now"), QStringLiteral("2026-03-03 14:05:00"), QStringLiteral("prepare"),
                    QStringLiteral("--content"), content, QStringLiteral("--questions"), questions,
                    QStringLiteral("--therapists"), therapists},
                   {}, dir.path());
    EXPECT_EQ(run.outText(), QStringLiteral("edtDOCMailbox=\n"
                                            "edtDOCName=Dr. Huber\n"
                                            "edtDOCSalutation=\n"
                                            "edtDOCStreet=\n"
                                            "edtDOCZIPCity=8010 Graz\n"
                                            "edtPATAssurance=\n"
                                            "edtPATFirstname=Eva\n"
                                            "edtPATGender#index=1\n"
                                            "edtPATGender=Weiblich\n"
                                            "edtPATLastname=Muster\n"
                                            "edtPATSVNr=1237010180\n"
                                            "edtPATStreet=Gasse 1\\nStiege 2\n"
                                            "edtPATTitle1#index=0\n"
                                            "edtPATTitle1=Dr.\n"
                                            "edtPATTitle2#index=-1\n"
                                            "edtPATTitle2=\n"
                                            "edtPATZIPCity=\n"
                                            "edtTHPDiagnosis=Lumbalgie\n"
                                            "edtTHPEnd=30.03.2026\n"
                                            "edtTHPStart=03.03.2026\n"
                                            "edtTHPTherapist=Anna\n"
                                            "edtTHPTherapistExtension=PT\n"
                                            "edtTHPTherapistField=PHY\n"
                                            "edtTHPTherapistMailbox=ME1\n"
                                            "memContent=\n"
                                            "answer:q1#index=1\n"
                                            "--\n"
                                            "ARZT_DIREKTANREDE=\n"
                                            "ARZT_NAME=Dr. Huber\n"
                                            "ARZT_PLZORT=8010 Graz\n"
                                            "ARZT_STRASSE=\n"
                                            "BERUFSBEZEICHNUNG=PT\n"
                                            "BIS=30.03.2026\n"
                                            "DIAGNOSE=Lumbalgie\n"
                                            "PATGESCHLECHT=Ihrer Patientin\n"
                                            "PATIENT=Eva Muster (1237010180)\n"
                                            "THERAPEUT=Anna\n"
                                            "VON=03.03.2026\n"));
    EXPECT_EQ(run.exitCode, 0);
}

TEST(ContentCliTest, PrepareNeedsContent) {
    EXPECT_EQ(runProgram(Cli, Args({u"prepare"})).exitCode, 2);
}

TEST(ContentCliTest, MedrptWritesTheExampleFileByteForByte) {
    testsupport::TempDir dir;
    const QString values = dir.writeFile(QStringLiteral("v.json"), ExampleValues(dir.path()));
    const QString pdf = dir.writeFile(QStringLiteral("in.pdf"), "%PDF-1.4\n\x01 end");
    const ProcessRun run = runProgram(Cli, {QStringLiteral("--now"), QStringLiteral("2026-03-03 14:05:00"),
                                            QStringLiteral("medrpt"), QStringLiteral("--values"), values,
                                            QStringLiteral("--pdf"), pdf});
    EXPECT_EQ(run.exitCode, 0);
    const QStringList written = QDir(dir.path()).entryList({QStringLiteral("{*}.pdf")}, QDir::Files);
    ASSERT_EQ(written.size(), 1);
    EXPECT_EQ(run.outText(), QStringLiteral("ResultFileName=") + dir.filePath(written.first()) + u'\n');
    QFile file(dir.filePath(written.first()));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), QByteArray(ExampleLine + "\r\n%PDF-1.4\n\x01 end"));
}

TEST(ContentCliTest, MedrptFailsWithTheLinesOfItsChecks) {
    testsupport::TempDir dir;
    const QString values =
        dir.writeFile(QStringLiteral("v.json"),
                      QStringLiteral(R"({"CFGDaMeOutbox":"%1","ADRDaMeCode":"XYZ","TPTDaMeFachgebiet":"PHY",
                                                     "PATGeburtstag":""})")
                          .arg(dir.path())
                          .toUtf8());
    const QString pdf = dir.writeFile(QStringLiteral("in.pdf"), "%PDF");
    const ProcessRun run = runProgram(Cli, {QStringLiteral("medrpt"), QStringLiteral("--values"), values,
                                            QStringLiteral("--pdf"), pdf, QStringLiteral("--date"),
                                            QStringLiteral("2026-03-03")});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.outText(), QStringLiteral("- Geburtsdatum wurde beim Patienten nicht angegeben.\n"
                                            "- beim Therapeuten wurde kein Übermittlungscode eingegeben.\n"));
    EXPECT_EQ(QDir(dir.path()).entryList({QStringLiteral("{*}.pdf")}, QDir::Files), QStringList());
}

TEST(ContentCliTest, MedrptTextShowsTheWholeInterchange) {
    testsupport::TempDir dir;
    const QString values = dir.writeFile(QStringLiteral("v.json"), ExampleValues(dir.path()));
    const ProcessRun run = runProgram(Cli, {QStringLiteral("--now"), QStringLiteral("2026-03-03 14:05:00"),
                                            QStringLiteral("medrpt-text"), QStringLiteral("--values"), values,
                                            QStringLiteral("--date"), QStringLiteral("2026-02-27")});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(
        run.outText(),
        QStringLiteral("UNA:+.? 'UNB+ANSI:1+ABC+XYZ+260303+1405+1'UNH+0+MEDRPT:1:901:UN'"
                       "BGM+PHY+++20260227++123415051980+19800515'FTX+BFD++Befund?: gut?.'FTX+ERG++O?'Neil'"
                       "NAD+PAT++Muster:Maria::Hauptstraße 1+++Wien++1010'UNT+6+0'UNZ+1+1'\n"));
}

TEST(ContentCliTest, MedrptTextRefusesABadDate) {
    testsupport::TempDir dir;
    const QString values = dir.writeFile(QStringLiteral("v.json"), "{}");
    EXPECT_EQ(runProgram(Cli, {QStringLiteral("medrpt-text"), QStringLiteral("--values"), values,
                               QStringLiteral("--date"), QStringLiteral("3.3.2026")})
                  .exitCode,
              2);
}
