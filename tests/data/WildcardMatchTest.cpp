#include "WildcardMatch.h"

#include <gtest/gtest.h>
#include <ostream>

using norvik::WildcardMatch;

namespace {

struct LikeCase {
    const char16_t* pattern;
    const char16_t* value;
    bool matches;
};

// names the case in test output
void PrintTo(const LikeCase& c, std::ostream* os) {
    *os << QString::fromUtf16(c.pattern).toStdString() << " / " << QString::fromUtf16(c.value).toStdString();
}

class WildcardMatchTest : public ::testing::TestWithParam<LikeCase> {};

TEST_P(WildcardMatchTest, Matches) {
    const LikeCase& c = GetParam();
    EXPECT_EQ(WildcardMatch::Matches(QString::fromUtf16(c.pattern), QString::fromUtf16(c.value)), c.matches)
        << QString::fromUtf16(c.pattern).toStdString() << " / " << QString::fromUtf16(c.value).toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Patterns, WildcardMatchTest,
    ::testing::Values(LikeCase{u"%MÜL%", u"Müller", true}, LikeCase{u"Ö%", u"österreich", true},
                      LikeCase{u"%straße", u"Hauptstraße", true}, LikeCase{u"müller", u"MÜLLER", true},
                      LikeCase{u"Mül", u"Müller", false}, LikeCase{u"M_ller", u"Müller", true},
                      LikeCase{u"M_ller", u"Mller", false}, LikeCase{u"%", u"", true},
                      LikeCase{u"_", u"", false}, LikeCase{u"a%b%c", u"aXXbYYc", true},
                      LikeCase{u"a%b%c", u"aXXcYYb", false}, LikeCase{u"%ab", u"aab", true},
                      LikeCase{u"100\\%", u"100%", true}, LikeCase{u"100\\%", u"1000", false},
                      LikeCase{u"a\\_c", u"abc", false}, LikeCase{u"a\\_c", u"a_c", true},
                      LikeCase{u"ab\\", u"ab\\", true}, LikeCase{u"%%%x", u"yyyx", true},
                      LikeCase{u"😀_", u"😀z", true}));

TEST(WildcardMatch, TakesAnotherEscapeCharacter) {
    EXPECT_TRUE(WildcardMatch::Matches(QStringLiteral("10!%"), QStringLiteral("10%"), '!'));
    EXPECT_FALSE(WildcardMatch::Matches(QStringLiteral("10!%"), QStringLiteral("10x"), '!'));
    // with another escape the backslash is an ordinary character
    EXPECT_TRUE(WildcardMatch::Matches(QStringLiteral("a\\%"), QStringLiteral("a\\bc"), '!'));
}

} // namespace
