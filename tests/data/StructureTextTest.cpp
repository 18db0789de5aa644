#include "StructureText.h"

#include <gtest/gtest.h>

using norvik::StructureText;

namespace {

TEST(StructureTextTest, SplitsAtEveryKindOfLineEnd) {
    EXPECT_EQ(
        StructureText::SplitLines(QStringLiteral("a\r\nb\nc\rd")),
        (QStringList{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"), QStringLiteral("d")}));
    EXPECT_EQ(StructureText::SplitLines(QStringLiteral("a\r\n")), QStringList{QStringLiteral("a")});
    // the lone CR between two blocks gives empty lines, never a line with a CR in it
    EXPECT_EQ(StructureText::SplitLines(QStringLiteral("a\r\n\r\r\nb")),
              (QStringList{QStringLiteral("a"), QString(), QString(), QStringLiteral("b")}));
    EXPECT_TRUE(StructureText::SplitLines(QString()).isEmpty());
}

TEST(StructureTextTest, JoinEndsEveryLineWithCarriageReturnAndLineFeed) {
    EXPECT_EQ(StructureText::JoinLines({QStringLiteral("a"), QString()}), QStringLiteral("a\r\n\r\n"));
}

TEST(StructureTextTest, ColumnsAreCutAtEachSemicolonWithoutQuoting) {
    QString rest = QStringLiteral("S;30;;'a;b';");
    EXPECT_EQ(StructureText::FetchColumn(rest), QStringLiteral("S"));
    EXPECT_EQ(StructureText::FetchColumn(rest), QStringLiteral("30"));
    EXPECT_EQ(StructureText::FetchColumn(rest), QString());
    EXPECT_EQ(StructureText::FetchColumn(rest), QStringLiteral("'a"));
    EXPECT_EQ(StructureText::FetchColumn(rest), QStringLiteral("b'"));
    EXPECT_EQ(rest, QString());
    EXPECT_EQ(StructureText::FetchColumn(rest), QString());
}

struct LineCase {
    const char* line;
    bool fieldInBlock;
    bool relevant;
};

class LineKindTest : public testing::TestWithParam<LineCase> {};

TEST_P(LineKindTest, BlockWalkFoldsCaseWhileSkippingDoesNot) {
    const QString line = QString::fromLatin1(GetParam().line);
    EXPECT_EQ(StructureText::IsKind(line, u'F'), GetParam().fieldInBlock);
    EXPECT_EQ(StructureText::IsRelevant(line), GetParam().relevant);
}

INSTANTIATE_TEST_SUITE_P(Lines, LineKindTest,
                         testing::Values(LineCase{"F:x;S;1;;;", true, true},
                                         LineCase{"f:x;S;1;;;", true, false}, LineCase{"", false, false},
                                         LineCase{"I:i;;x", false, true}, LineCase{" F:x", false, false},
                                         LineCase{"T:t", false, true}));

struct VersionCase {
    const char* text;
    int version;
};

class VersionTest : public testing::TestWithParam<VersionCase> {};

TEST_P(VersionTest, ReadsTheVersionOfTheHeader) {
    const QStringList lines = StructureText::SplitLines(QString::fromLatin1(GetParam().text));
    EXPECT_EQ(StructureText::ReadExportFormatVersion(lines), GetParam().version);
}

INSTANTIATE_TEST_SUITE_P(Headers, VersionTest,
                         testing::Values(VersionCase{"[Header]\nExportFormatVersion=3\n[HeaderEnd]\nT:a", 3},
                                         VersionCase{"[header]\nexportformatversion=2\n[headerend]", 2},
                                         VersionCase{"", 0}, VersionCase{"T:a\nF:b;I;0;;;", 0},
                                         VersionCase{"[Header]\nOther=1\n[HeaderEnd]", 0},
                                         VersionCase{"[Header]\nExportFormatVersion=drei\n[HeaderEnd]", 0},
                                         VersionCase{"[Header]\n[HeaderEnd]\nExportFormatVersion=3", 0},
                                         // without the end marker all following lines are header lines
                                         VersionCase{"[Header]\nT:a\nExportFormatVersion=1", 1}));

TEST(StructureTextTest, NamesCompareInAsciiOrderFoldingOnlyLetters) {
    EXPECT_EQ(StructureText::CompareNames(QStringLiteral("sysConfig"), QStringLiteral("SYSCONFIG")), 0);
    EXPECT_LT(StructureText::CompareNames(QStringLiteral("sysTableIDs"), QStringLiteral("tblAdressen")), 0);
    EXPECT_LT(StructureText::CompareNames(QStringLiteral("tblZ"), StructureText::EndOfList()), 0);
    // "_" stands behind the upper-case letters in ASCII, whatever a locale says
    EXPECT_GT(StructureText::CompareNames(QStringLiteral("a_b"), QStringLiteral("aZ")), 0);
    EXPECT_LT(StructureText::CompareNames(QStringLiteral("ab"), QStringLiteral("abc")), 0);
}

TEST(StructureTextTest, FindsTableLinesInBothDirections) {
    const QStringList lines{QStringLiteral("x"), QStringLiteral("T:a"), QStringLiteral("F:b;I;0;;;"),
                            QStringLiteral("t:c")};
    EXPECT_EQ(StructureText::NextTable(lines, 0), 1);
    EXPECT_EQ(StructureText::NextTable(lines, 2), 3);
    EXPECT_EQ(StructureText::NextTable(lines, 4), 4);
    EXPECT_EQ(StructureText::PreviousTable(lines, 2), 1);
    EXPECT_EQ(StructureText::PreviousTable(lines, 0), -1);
    EXPECT_EQ(StructureText::TableName(lines, 3), QStringLiteral("c"));
    EXPECT_EQ(StructureText::TableName(lines, 4), QStringLiteral("ZZZZ"));
}

} // namespace
