#include "CliProcess.h"
#include "TestEnvironment.h"

#include <gtest/gtest.h>

namespace {

const QString Cli = QStringLiteral(ORVENNA_CLI_PATH);
const QStringList FixedNow{QStringLiteral("--now"), QStringLiteral("2026-03-18 10:20:30")};

QStringList args(std::initializer_list<const char16_t*> values) {
    QStringList result;
    for (const char16_t* value : values)
        result.append(QString::fromUtf16(value));
    return result;
}

struct CliCase {
    const char* title;
    QStringList arguments;
    QByteArray input;
    const char16_t* out;
    int exitCode;
};

class CliOutputTest : public testing::TestWithParam<CliCase> {};

TEST_P(CliOutputTest, PrintsAndEnds) {
    const CliCase& c = GetParam();
    const ProcessRun run = runProgram(Cli, c.arguments, c.input);
    EXPECT_EQ(run.outText(), QString::fromUtf16(c.out));
    EXPECT_EQ(run.exitCode, c.exitCode);
    EXPECT_TRUE(run.err.isEmpty()) << run.err.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Params, CliOutputTest,
    testing::Values(
        CliCase{"NoArguments", args({u"params"}), {}, u"--\n", 0},
        CliCase{
            "BothTables",
            args({u"params", u"/q:C:\\x.json", u"-q", u"file", u"/Q:y", u"/v", u"/v:c.json", u"/DEVELOPING"}),
            {},
            u"Q=y\n-q\nfile\nv\nv=c.json\nDEVELOPING\n--\nQ=y\nv\nv=c.json\nDEVELOPING\n",
            0},
        CliCase{"ExeNameLeftOut", args({u"params", u"/ExeName:x", u"/rc:1"}), {}, u"rc=1\n--\nrc=1\n", 0},
        CliCase{
            "ArgumentsLikeOptionsOfTheTool", args({u"params", u"--now", u"x"}), {}, u"--now\nx\n--\n", 0}),
    [](const testing::TestParamInfo<CliCase>& info) { return std::string(info.param.title); });

INSTANTIATE_TEST_SUITE_P(
    Versions, CliOutputTest,
    testing::Values(CliCase{"Number", args({u"version-number", u"1.0.2.41"}), {}, u"0010002041\n", 0},
                    CliCase{"NoNumber", args({u"version-number", u"x"}), {}, u"0000000000\n", 0}),
    [](const testing::TestParamInfo<CliCase>& info) { return std::string(info.param.title); });

INSTANTIATE_TEST_SUITE_P(
    Json, CliOutputTest,
    testing::Values(CliCase{"Object", args({u"json"}), "{\"a\":[1,2.5,\"x\"], b : true}",
                            u"object\n{\"a\":[1,2.5,\"x\"],\"b\":true}\n", 0},
                    CliCase{"Array", args({u"json"}), "[]", u"array\n[]\n", 0},
                    CliCase{"PartialArray", args({u"json"}), "[1,2,", u"array\n[1,2]\n", 0},
                    CliCase{"Null", args({u"json"}), "null", u"null\nnull\n", 0},
                    CliCase{"Nothing", args({u"json"}), "", u"unassigned\nnull\n", 0},
                    CliCase{"Garbage", args({u"json"}), "nul", u"unassigned\nnull\n", 0},
                    CliCase{"Boolean", args({u"json"}), "false", u"boolean\nfalse\n", 0},
                    CliCase{"Integer", args({u"json"}), "  12 trailing", u"integer\n12\n", 0},
                    CliCase{"Float", args({u"json"}), "1e3", u"float\n1000\n", 0},
                    CliCase{"FloatDigits", args({u"json"}), "0.1", u"float\n0.1\n", 0},
                    CliCase{"String", args({u"json"}), "\"Gr\xC3\xBC\xC3\x9F\x65\\t\\u001f\"",
                            u"string\n\"Grüße\\t\\u001F\"\n", 0}),
    [](const testing::TestParamInfo<CliCase>& info) { return std::string(info.param.title); });

INSTANTIATE_TEST_SUITE_P(Truth, CliOutputTest,
                         testing::Values(CliCase{"Ja", args({u"truth", u"ja"}), {}, u"true\n", 0},
                                         CliCase{"MinusOne", args({u"truth", u"-1"}), {}, u"true\n", 0},
                                         CliCase{"Nein", args({u"truth", u"N"}), {}, u"false\n", 0},
                                         CliCase{"Empty", args({u"truth", u""}), {}, u"false\n", 0}),
                         [](const testing::TestParamInfo<CliCase>& info) {
                             return std::string(info.param.title);
                         });

INSTANTIATE_TEST_SUITE_P(
    Float, CliOutputTest,
    testing::Values(
        CliCase{"GermanFormat", args({u"float", u"1.234,56"}), {}, u"1 1234.56\n", 0},
        CliCase{"TrailingWords", args({u"float", u"12,5 kg"}), {}, u"1 12.5\n", 0},
        CliCase{"FifteenDigits", args({u"float", u"0,1234567890123456789"}), {}, u"1 0.123456789012346\n", 0},
        CliCase{"Bad", args({u"float", u"abc"}), {}, u"0 0\n", 1},
        CliCase{"Minus", args({u"float", u"-"}), {}, u"0 0\n", 1},
        CliCase{"Blank", args({u"float", u"  "}), {}, u"2 0\n", 1}),
    [](const testing::TestParamInfo<CliCase>& info) { return std::string(info.param.title); });

INSTANTIATE_TEST_SUITE_P(
    Date, CliOutputTest,
    testing::Values(
        CliCase{"Today", FixedNow + args({u"date", u"heute"}), {}, u"1 2026-03-18 00:00:00\n", 0},
        CliCase{"Now", FixedNow + args({u"date", u"jetzt"}), {}, u"1 2026-03-18 10:20:30\n", 0},
        CliCase{
            "MonthWord", FixedNow + args({u"date", u"3. Jänner 2026"}), {}, u"1 2026-01-03 00:00:00\n", 0},
        CliCase{"CalendarWeek", FixedNow + args({u"date", u"kw1226"}), {}, u"1 2026-03-16 00:00:00\n", 0},
        CliCase{
            "MonthTakesTodaysDay", FixedNow + args({u"date", u"März"}), {}, u"1 2026-03-18 00:00:00\n", 0},
        CliCase{"UnsetDayFails",
                FixedNow + args({u"date", u"März", u"--unset"}),
                {},
                u"0 1899-12-30 00:00:00\n",
                1},
        CliCase{"SwitchFirst",
                FixedNow + args({u"date", u"--unset", u"3.1.26"}),
                {},
                u"1 2026-01-03 00:00:00\n",
                0},
        CliCase{"UnknownWord", FixedNow + args({u"date", u"gestern"}), {}, u"0 1899-12-30 00:00:00\n", 1}),
    [](const testing::TestParamInfo<CliCase>& info) { return std::string(info.param.title); });

INSTANTIATE_TEST_SUITE_P(
    Iso8601, CliOutputTest,
    testing::Values(
        CliCase{"DateOnly", args({u"iso8601", u"2026-03-18"}), {}, u"2026-03-18 00:00:00.000\n", 0},
        CliCase{"ZoneKept",
                args({u"iso8601", u"2026-03-18T14:30:15.250+01:00"}),
                {},
                u"2026-03-18 14:30:15.250\n",
                0},
        CliCase{"ZoneTakenOff",
                args({u"iso8601", u"2026-03-18T14:30:15.250+01:00", u"--utc"}),
                {},
                u"2026-03-18 13:30:15.250\n",
                0},
        CliCase{"Unreadable", args({u"iso8601", u"abc"}), {}, u"default\n", 1}),
    [](const testing::TestParamInfo<CliCase>& info) { return std::string(info.param.title); });

INSTANTIATE_TEST_SUITE_P(
    Questions, CliOutputTest,
    testing::Values(
        CliCase{"EmptyList", args({u"questions", u"{\"questions\":[]}"}), {}, u"actual=True\n", 0},
        CliCase{"NoList", args({u"questions", u"{}"}), {}, u"actual=False\n", 0},
        CliCase{"Entries",
                args({u"questions", u"{\"questions\":[{\"name\":\"a\",\"description\":\"Ä\","
                                    u"\"items\":[{\"code\":\"01\",\"caption\":\"x\\\"y\"},{\"code\":\"02\"}],"
                                    u"\"subcategories\":[{\"name\":\"a.1\",\"description\":\"B\","
                                    u"\"items\":[]}]}]}"}),
                {},
                u"{\"name\":\"a\",\"caption\":\"Ä\",\"header\":true,\"indent\":0,\"pairs\":[]}\n"
                u"{\"name\":\"a\",\"caption\":\"Ä\",\"header\":false,\"indent\":1,"
                u"\"pairs\":[[\"01\",\"x\\\"y\"]]}\n"
                u"{\"name\":\"a.1\",\"caption\":\"B\",\"header\":false,\"indent\":2,\"pairs\":[]}\n"
                u"actual=True\n",
                0}),
    [](const testing::TestParamInfo<CliCase>& info) { return std::string(info.param.title); });

struct UsageCase {
    const char* title;
    QStringList arguments;
};

class CliUsageTest : public testing::TestWithParam<UsageCase> {};

TEST_P(CliUsageTest, EndsWithTwoAndAMessage) {
    const ProcessRun run = runProgram(Cli, GetParam().arguments);
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TRUE(run.out.isEmpty()) << run.out.toStdString();
    EXPECT_TRUE(run.err.startsWith("orvenna-cli: ")) << run.err.toStdString();
    EXPECT_TRUE(run.err.contains("usage: orvenna-cli")) << run.err.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Errors, CliUsageTest,
    testing::Values(UsageCase{"NoSubcommand", {}}, UsageCase{"UnknownSubcommand", args({u"catalogue"})},
                    UsageCase{"NowWithoutMoment", args({u"--now"})},
                    UsageCase{"NowWithoutSubcommand", FixedNow},
                    UsageCase{"NowNoMoment", args({u"--now", u"18.03.2026", u"date", u"heute"})},
                    UsageCase{"NowWithoutSeconds", args({u"--now", u"2026-03-18 10:20", u"date", u"heute"})},
                    UsageCase{"VersionWithoutText", args({u"version-number"})},
                    UsageCase{"VersionTwoTexts", args({u"version-number", u"1", u"2"})},
                    UsageCase{"JsonTwoFiles", args({u"json", u"a", u"b"})},
                    UsageCase{"TruthWithoutText", args({u"truth"})},
                    UsageCase{"FloatTwoTexts", args({u"float", u"1", u"2"})},
                    UsageCase{"DateOnlySwitch", args({u"date", u"--unset"})},
                    UsageCase{"IsoWithoutText", args({u"iso8601", u"--utc"})},
                    UsageCase{"QuestionsTwoSources", args({u"questions", u"a", u"b"})}),
    [](const testing::TestParamInfo<UsageCase>& info) { return std::string(info.param.title); });

TEST(CliTest, HelpGoesToStandardOutput) {
    const ProcessRun run = runProgram(Cli, args({u"--help"}));
    EXPECT_EQ(run.exitCode, 0);
    for (const char* name :
         {"params", "version-number", "json", "truth", "float", "date", "iso8601", "questions"})
        EXPECT_TRUE(run.out.contains(name)) << name;
}

TEST(CliTest, JsonFromFile) {
    testsupport::TempDir dir;
    const QString path = dir.writeFile(QStringLiteral("a.json"), "\xEF\xBB\xBF{\"k\":\"\xC3\xA4\"}");
    const ProcessRun run = runProgram(Cli, {QStringLiteral("json"), path});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.outText(), QStringLiteral("object\n{\"k\":\"ä\"}\n"));
}

TEST(CliTest, JsonFromMissingFileFails) {
    testsupport::TempDir dir;
    const ProcessRun run =
        runProgram(Cli, {QStringLiteral("json"), dir.filePath(QStringLiteral("missing.json"))});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.out.isEmpty());
    EXPECT_TRUE(run.err.contains("missing.json")) << run.err.toStdString();
}

QStringList outputLines(const ProcessRun& run) {
    QStringList lines = run.outText().split(QLatin1Char('\n'));
    if (lines.last().isEmpty())
        lines.removeLast();
    return lines;
}

TEST(CliTest, EmptySourceGivesTheBuiltInCatalogueInUtf8) {
    const ProcessRun run = runProgram(Cli, {QStringLiteral("questions"), QString()});
    EXPECT_EQ(run.exitCode, 0);
    const QStringList lines = outputLines(run);
    ASSERT_EQ(lines.size(), 12);
    EXPECT_EQ(lines.first(),
              QStringLiteral("{\"name\":\"q01\",\"caption\":\"Behandlungsergebnis\",\"header\":true,"
                             "\"indent\":0,\"pairs\":[]}"));
    EXPECT_TRUE(run.out.contains("\"Gelenksmobilit\xC3\xA4t\""));
    EXPECT_TRUE(run.out.contains("[\"04\",\"physiologisches Bewegungsausma\xC3\x9F\"]"));
    EXPECT_EQ(lines.last(), QStringLiteral("actual=True"));
}

TEST(CliTest, DefaultSourceIsTheFileInTheWorkingFolder) {
    testsupport::TempDir dir;
    dir.writeFile(QStringLiteral("questions.json"),
                  "{\"questions\":[{\"name\":\"eigen\",\"description\":\"E\"}]}");
    const ProcessRun run = runProgram(Cli, {QStringLiteral("questions")}, {}, dir.path());
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(outputLines(run),
              QStringList({QStringLiteral("{\"name\":\"eigen\",\"caption\":\"E\",\"header\":true,"
                                          "\"indent\":0,\"pairs\":[]}"),
                           QStringLiteral("actual=True")}));
}

TEST(CliTest, WithoutFileInTheWorkingFolderTheBuiltInCatalogueAppears) {
    testsupport::TempDir dir;
    const ProcessRun run = runProgram(Cli, {QStringLiteral("questions")}, {}, dir.path());
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(outputLines(run).size(), 12);
}

TEST(CliTest, CatalogueFileNamedAsSource) {
    testsupport::TempDir dir;
    const QString path =
        dir.writeFile(QStringLiteral("k.json"), "{\"questions\":[{\"name\":\"k\",\"description\":\"K\"}]}");
    const ProcessRun run = runProgram(Cli, {QStringLiteral("questions"), path});
    EXPECT_EQ(outputLines(run).first(),
              QStringLiteral("{\"name\":\"k\",\"caption\":\"K\",\"header\":true,\"indent\":0,\"pairs\":[]}"));
}

} // namespace
