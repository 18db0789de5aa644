#include "StringUtils.h"

#include <gtest/gtest.h>

using namespace norvik;

namespace {

struct FetchCase {
    const char* text;
    const char* delimiter;
    bool caseInsensitive;
    const char* token;
    const char* rest;
    bool found;
};

void PrintTo(const FetchCase& c, std::ostream* os) {
    *os << '"' << c.text << "\" by \"" << c.delimiter << '"';
}

class FetchTokenSplits : public ::testing::TestWithParam<FetchCase> {};

TEST_P(FetchTokenSplits, AtTheFirstDelimiter) {
    QString text = QString::fromLatin1(GetParam().text);
    QString token = QStringLiteral("old");
    EXPECT_EQ(FetchToken(text, QString::fromLatin1(GetParam().delimiter), GetParam().caseInsensitive, token),
              GetParam().found);
    EXPECT_EQ(token, QString::fromLatin1(GetParam().token));
    EXPECT_EQ(text, QString::fromLatin1(GetParam().rest));
}

INSTANTIATE_TEST_SUITE_P(
    Texts, FetchTokenSplits,
    ::testing::Values(FetchCase{"a;b;c", ";", false, "a", "b;c", true},
                      FetchCase{"a;", ";", false, "a", "", true}, FetchCase{";b", ";", false, "", "b", true},
                      FetchCase{"abc", ";", false, "abc", "", false},
                      FetchCase{"", ";", false, "", "", false},
                      FetchCase{"one AND two AND three", " and ", true, "one", "two AND three", true},
                      FetchCase{"one AND two", " and ", false, "one AND two", "", false},
                      FetchCase{"a<>b", "<>", false, "a", "b", true},
                      FetchCase{"abc", "", false, "abc", "", false}));

TEST(FetchToken, WalksThroughAList) {
    QString text = QStringLiteral("x,y,,z");
    QStringList tokens;
    QString token;
    while (!text.isEmpty()) {
        FetchToken(text, QStringLiteral(","), false, token);
        tokens << token;
    }
    EXPECT_EQ(tokens,
              QStringList({QStringLiteral("x"), QStringLiteral("y"), QString(), QStringLiteral("z")}));
}

struct AddCase {
    const char* text;
    const char* token;
    bool trim;
    const char* expected;
};

class AddTokenJoins : public ::testing::TestWithParam<AddCase> {};

TEST_P(AddTokenJoins, OnlyWhenBothHaveText) {
    EXPECT_EQ(AddToken(QString::fromLatin1(GetParam().text), QString::fromLatin1(GetParam().token),
                       QStringLiteral(", "), GetParam().trim),
              QString::fromLatin1(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(Pairs, AddTokenJoins,
                         ::testing::Values(AddCase{"Muster", "Eva", false, "Muster, Eva"},
                                           AddCase{"", "Eva", false, "Eva"},
                                           AddCase{"Muster", "", false, "Muster"}, AddCase{"", "", false, ""},
                                           AddCase{" Muster ", " ", false, " Muster ,  "},
                                           AddCase{" Muster ", " ", true, "Muster"},
                                           AddCase{" Muster ", " Eva ", true, "Muster, Eva"},
                                           AddCase{"  ", " Eva", true, "Eva"}));

TEST(JoinTrimmed, DropsEmptyItems) {
    EXPECT_EQ(JoinTrimmed({QStringLiteral(" Dr. "), QString(), QStringLiteral("  "), QStringLiteral("Eva ")},
                          QStringLiteral(" ")),
              QStringLiteral("Dr. Eva"));
    EXPECT_EQ(JoinTrimmed({}, QStringLiteral(",")), QString());
}

struct ReplaceCase {
    const char* text;
    QStringList search;
    QStringList replace;
    const char* expected;
};

void PrintTo(const ReplaceCase& c, std::ostream* os) {
    *os << '"' << c.text << '"';
}

class ReplaceAllOfReplaces : public ::testing::TestWithParam<ReplaceCase> {};

TEST_P(ReplaceAllOfReplaces, InOnePass) {
    EXPECT_EQ(ReplaceAllOf(QString::fromLatin1(GetParam().text), GetParam().search, GetParam().replace),
              QString::fromLatin1(GetParam().expected));
}

QStringList list(std::initializer_list<const char*> items) {
    QStringList result;
    for (const char* item : items)
        result << QString::fromLatin1(item);
    return result;
}

INSTANTIATE_TEST_SUITE_P(Texts, ReplaceAllOfReplaces,
                         ::testing::Values(ReplaceCase{"a b c", list({"a", "b"}), list({"1", "2"}), "1 2 c"},
                                           // swapping works because the replacement is not scanned again
                                           ReplaceCase{"ab", list({"a", "b"}), list({"b", "a"}), "ba"},
                                           ReplaceCase{"aaa", list({"a"}), list({"aa"}), "aaaaaa"},
                                           // the first pair in the list wins at a place
                                           ReplaceCase{"abc", list({"ab", "abc"}), list({"X", "Y"}), "Xc"},
                                           // a pair that changes nothing does not block a later one
                                           ReplaceCase{"abc", list({"ab", "abc"}), list({"ab", "Y"}), "Y"},
                                           ReplaceCase{"abc", list({""}), list({"X"}), "abc"},
                                           ReplaceCase{"", list({"a"}), list({"b"}), ""},
                                           ReplaceCase{"{A}{B}", list({"{A}", "{B}"}), list({"{B}", ""}),
                                                       "{B}"},
                                           ReplaceCase{"a-b", list({"a", "-"}), list({"1"}), "1-b"}));

TEST(ReplaceAllOf, CanIgnoreLetterCase) {
    EXPECT_EQ(ReplaceAllOf(QStringLiteral("Abc aBC"), {QStringLiteral("abc")}, {QStringLiteral("x")}, true),
              QStringLiteral("x x"));
    EXPECT_EQ(ReplaceAllOf(QStringLiteral("Abc abc"), {QStringLiteral("abc")}, {QStringLiteral("x")}, false),
              QStringLiteral("Abc x"));
}

TEST(UnescapeConfigValue, BackslashSequences) {
    EXPECT_EQ(UnescapeConfigValue(QStringLiteral(R"(a\nb\Nc)")), QStringLiteral("a\r\nb\r\nc"));
    EXPECT_EQ(UnescapeConfigValue(QStringLiteral(R"(C:\\temp)")), QStringLiteral(R"(C:\temp)"));
    EXPECT_EQ(UnescapeConfigValue(QStringLiteral(R"(C:\temp\)")), QStringLiteral(R"(C:\temp\)"));
    EXPECT_EQ(UnescapeConfigValue(QStringLiteral(R"(\\n)")), QStringLiteral(R"(\n)"));
    EXPECT_EQ(UnescapeConfigValue(QString()), QString());
}

TEST(QuotedSQLText, DoublesApostrophesAndDropsTrailingZeros) {
    EXPECT_EQ(QuotedSQLText(QStringLiteral("O'Hara")), QStringLiteral("O''Hara"));
    EXPECT_EQ(QuotedSQLText(QStringLiteral("''")), QStringLiteral("''''"));
    QString withZeros = QStringLiteral("abc");
    withZeros.append(QChar(0)).append(QChar(0));
    EXPECT_EQ(QuotedSQLText(withZeros), QStringLiteral("abc"));
    QString zeroInside = QStringLiteral("a");
    zeroInside.append(QChar(0)).append(QLatin1Char('b'));
    EXPECT_EQ(QuotedSQLText(zeroInside), zeroInside);
}

TEST(NormalizePath, ReducesDoubledBackslashesBehindTheStart) {
    EXPECT_EQ(NormalizePath(QStringLiteral(R"(\\server\\share\\file)")),
              QStringLiteral(R"(\\server\share\file)"));
    EXPECT_EQ(NormalizePath(QStringLiteral(R"(C:\\dir\\\\file)")), QStringLiteral(R"(C:\dir\file)"));
    // three passes: eight backslashes become one
    EXPECT_EQ(NormalizePath(QStringLiteral(R"(C:\\\\\\\\x)")), QStringLiteral(R"(C:\x)"));
    EXPECT_EQ(NormalizePath(QString(16, QLatin1Char('\\')).prepend(QStringLiteral("C:"))),
              QStringLiteral(R"(C:\\)"));
    EXPECT_EQ(NormalizePath(QStringLiteral("\\")), QStringLiteral("\\"));
}

} // namespace
