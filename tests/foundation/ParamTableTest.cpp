#include "AppUtils.h"
#include "SystemUtils.h"
#include "TParamTable.h"

#include <gtest/gtest.h>

using namespace norvik;

namespace {

const QString Exe = QStringLiteral("/opt/orvenna/orvenna");

QStringList commandLine(std::initializer_list<const char16_t*> arguments) {
    QStringList result{Exe};
    for (const char16_t* argument : arguments)
        result.append(QString::fromUtf16(argument));
    return result;
}

QStringList lines(std::initializer_list<const char16_t*> texts) {
    QStringList result;
    for (const char16_t* text : texts)
        result.append(QString::fromUtf16(text));
    return result;
}

QStringList withExe(QStringList expected) {
    expected.append(QStringLiteral("ExeName=") + Exe);
    return expected;
}

struct FillCase {
    const char* title;
    QStringList arguments;
    QStringList cmdLines;
    QStringList appLines;
};

class ParamTableFillTest : public testing::TestWithParam<FillCase> {};

TEST_P(ParamTableFillTest, FillsBothTables) {
    const FillCase& c = GetParam();
    FillCmdParams(c.arguments);
    FillAppParams(c.arguments);
    EXPECT_EQ(CmdParams().lines(), withExe(c.cmdLines));
    EXPECT_EQ(AppParams().lines(), withExe(c.appLines));
}

INSTANTIATE_TEST_SUITE_P(
    CommandLines, ParamTableFillTest,
    testing::Values(
        FillCase{"NoArguments", commandLine({}), {}, {}},
        FillCase{"OptionWithValue", commandLine({u"/q:x.json"}), lines({u"q=x.json"}), lines({u"q=x.json"})},
        FillCase{"OnlyTheFirstColonSplits", commandLine({u"/q:C:\\data\\q.json"}),
                 lines({u"q=C:\\data\\q.json"}), lines({u"q=C:\\data\\q.json"})},
        FillCase{"BareSwitch", commandLine({u"/q"}), lines({u"q"}), lines({u"q"})},
        FillCase{"EmptyValueIsABareSwitch", commandLine({u"/C:"}), lines({u"C"}), lines({u"C"})},
        FillCase{"DashIsNoOptionSign", commandLine({u"-q", u"file.json"}), lines({u"-q", u"file.json"}), {}},
        FillCase{"PositionalWithColon", commandLine({u"C:\\x.json"}), lines({u"C:\\x.json"}), {}},
        FillCase{"EmptyArgumentIsPositional", commandLine({u""}), lines({u""}), {}},
        FillCase{"RepeatedOptionKeepsTheLastValue", commandLine({u"/q:a", u"/q:b"}), lines({u"q=b"}),
                 lines({u"q=b"})},
        FillCase{"RepeatedOptionInOtherCase", commandLine({u"/Q:a", u"/q:b"}), lines({u"q=b"}),
                 lines({u"q=b"})},
        FillCase{"SwitchThenValueKeepsBoth", commandLine({u"/v", u"/v:c.json"}), lines({u"v", u"v=c.json"}),
                 lines({u"v", u"v=c.json"})},
        FillCase{"ValueThenSwitchKeepsBoth", commandLine({u"/v:c.json", u"/v"}), lines({u"v=c.json", u"v"}),
                 lines({u"v=c.json", u"v"})},
        FillCase{"ValueMayHoldEquals", commandLine({u"/q:{\"a\":1}", u"/x:a=b"}),
                 lines({u"q={\"a\":1}", u"x=a=b"}), lines({u"q={\"a\":1}", u"x=a=b"})},
        FillCase{"MixedOrderKept", commandLine({u"first", u"/rc:1", u"second", u"/nodb"}),
                 lines({u"first", u"rc=1", u"second", u"nodb"}), lines({u"rc=1", u"nodb"})},
        FillCase{"ExeNameOptionIsOverwritten", commandLine({u"/ExeName:other"}), {}, {}}),
    [](const testing::TestParamInfo<FillCase>& info) { return std::string(info.param.title); });

struct ReadCase {
    const char* title;
    QStringList arguments;
    const char16_t* name;
    const char16_t* value;
    bool hasCmd;
    bool hasApp;
};

class ParamTableReadTest : public testing::TestWithParam<ReadCase> {};

TEST_P(ParamTableReadTest, GettersSeeWhatTheOptionGave) {
    const ReadCase& c = GetParam();
    FillCmdParams(c.arguments);
    FillAppParams(c.arguments);
    const QString name = QString::fromUtf16(c.name);
    const QString value = QString::fromUtf16(c.value);
    EXPECT_EQ(GetCmdParam(name), value);
    EXPECT_EQ(HasCmdParam(name), c.hasCmd);
    EXPECT_EQ(GetAppParam(name), value);
    EXPECT_EQ(HasAppParam(name), c.hasApp);
}

INSTANTIATE_TEST_SUITE_P(
    Options, ParamTableReadTest,
    testing::Values(ReadCase{"Absent", commandLine({u"/v:c.json"}), u"q", u"", false, false},
                    ReadCase{"WithValue", commandLine({u"/q:q.json"}), u"q", u"q.json", true, true},
                    ReadCase{"BareSwitchIsPresentButEmpty", commandLine({u"/q"}), u"q", u"", true, false},
                    ReadCase{"EmptyTitleHasNoEffect", commandLine({u"/C:"}), u"C", u"", true, false},
                    ReadCase{"NameInAnyCase", commandLine({u"/Q:x"}), u"q", u"x", true, true},
                    ReadCase{"NodbZeroIsAValue", commandLine({u"/nodb:0"}), u"nodb", u"0", true, true},
                    ReadCase{"AskedInOtherCase", commandLine({u"/nodb:1"}), u"NODB", u"1", true, true},
                    ReadCase{"ValueWinsOverSwitch", commandLine({u"/v", u"/v:c.json"}), u"v", u"c.json", true,
                             true},
                    ReadCase{"NoNamePrefixMatch", commandLine({u"/qq:x"}), u"q", u"", false, false},
                    ReadCase{"PositionalIsNoOption", commandLine({u"q"}), u"q", u"", true, false},
                    ReadCase{"DashedIsNoOption", commandLine({u"-q:x"}), u"q", u"", false, false}),
    [](const testing::TestParamInfo<ReadCase>& info) { return std::string(info.param.title); });

struct ConsoleCase {
    const char* title;
    QStringList arguments;
    bool resultToConsole;
};

class ResultToConsoleTest : public testing::TestWithParam<ConsoleCase> {};

TEST_P(ResultToConsoleTest, OnlyTheValueOneCounts) {
    FillCmdParams(GetParam().arguments);
    InitResultToConsole();
    EXPECT_EQ(ResultToConsole, GetParam().resultToConsole);
    EXPECT_EQ(ConsoleAllocated, GetParam().resultToConsole);
}

INSTANTIATE_TEST_SUITE_P(Options, ResultToConsoleTest,
                         testing::Values(ConsoleCase{"One", commandLine({u"/rc:1"}), true},
                                         ConsoleCase{"OneInUpperCaseName", commandLine({u"/RC:1"}), true},
                                         ConsoleCase{"Two", commandLine({u"/rc:2"}), false},
                                         ConsoleCase{"BareSwitch", commandLine({u"/rc"}), false},
                                         ConsoleCase{"Absent", commandLine({}), false},
                                         ConsoleCase{"OneWithBlank", commandLine({u"/rc:1 "}), false}),
                         [](const testing::TestParamInfo<ConsoleCase>& info) {
                             return std::string(info.param.title);
                         });

struct DevelopingCase {
    const char* title;
    QStringList arguments;
    bool developing;
};

class DevelopingModeTest : public testing::TestWithParam<DevelopingCase> {};

TEST_P(DevelopingModeTest, NeedsTheBareSwitch) {
    FillAppParams(GetParam().arguments);
    EXPECT_EQ(DevelopingMode, GetParam().developing);
}

INSTANTIATE_TEST_SUITE_P(
    Switches, DevelopingModeTest,
    testing::Values(DevelopingCase{"Switch", commandLine({u"/DEVELOPING"}), true},
                    DevelopingCase{"SwitchInLowerCase", commandLine({u"/developing"}), true},
                    DevelopingCase{"WithValueIsNoSwitch", commandLine({u"/DEVELOPING:1"}), false},
                    DevelopingCase{"PositionalIsDropped", commandLine({u"DEVELOPING"}), false},
                    DevelopingCase{"Absent", commandLine({u"/q:x"}), false}),
    [](const testing::TestParamInfo<DevelopingCase>& info) { return std::string(info.param.title); });

TEST(ParamTableTest, FillingAgainStartsFromScratch) {
    FillCmdParams(commandLine({u"/q:a", u"loose"}));
    FillCmdParams(commandLine({u"/v:b"}));
    EXPECT_EQ(CmdParams().lines(), withExe(lines({u"v=b"})));
}

TEST(ParamTableTest, EmptyValueRemovesTheEntry) {
    TParamTable table;
    table.setValue(QStringLiteral("a"), QStringLiteral("1"));
    table.addLine(QStringLiteral("a"));
    table.setValue(QStringLiteral("A"), QString());
    EXPECT_EQ(table.lines(), lines({u"a"}));
}

TEST(ParamTableTest, PositionalLineWithEqualsReadsAsNamedValue) {
    FillCmdParams(commandLine({u"key=value"}));
    EXPECT_EQ(GetCmdParam(QStringLiteral("key")), QStringLiteral("value"));
}

TEST(ParamTableTest, EmptyArgumentListHasNoExeName) {
    TParamTable table;
    table.fill({}, TParamTable::Positional::Keep);
    EXPECT_TRUE(table.lines().isEmpty());
}

} // namespace
