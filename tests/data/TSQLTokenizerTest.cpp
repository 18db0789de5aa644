#include "TSQLTokenizer.h"

#include <gtest/gtest.h>
#include <vector>

using namespace norvik;

namespace {

struct TokenCase {
    const char16_t* text;
    std::vector<const char16_t*> items;
};

class TSQLTokenizerTest : public ::testing::TestWithParam<TokenCase> {};

TEST_P(TSQLTokenizerTest, Splits) {
    const TSQLTokenizer tokens(QString::fromUtf16(GetParam().text));
    QStringList expected;
    for (const char16_t* item : GetParam().items)
        expected.append(QString::fromUtf16(item));
    EXPECT_EQ(tokens.Items(), expected);
    EXPECT_EQ(tokens.ItemCount(), expected.size());
}

INSTANTIATE_TEST_SUITE_P(Cases, TSQLTokenizerTest,
                         ::testing::Values(TokenCase{u"", {}}, TokenCase{u" \t\r\n ", {}},
                                           TokenCase{u"a  b\tc\r\nd", {u"a", u"b", u"c", u"d"}},
                                           TokenCase{u"'a  b' c", {u"'a  b'", u"c"}},
                                           TokenCase{u"\"a b\" c", {u"\"a b\"", u"c"}},
                                           TokenCase{u"'sag \"hallo du' x", {u"'sag \"hallo du'", u"x"}},
                                           TokenCase{u"\"it's a\" x", {u"\"it's a\"", u"x"}},
                                           TokenCase{u"f(a, b) c", {u"f(a, b)", u"c"}},
                                           TokenCase{u"(a (b c)) d", {u"(a (b c))", u"d"}},
                                           TokenCase{u"(a ' b) c", {u"(a ' b)", u"c"}},
                                           TokenCase{u"x) y", {u"x)", u"y"}},
                                           TokenCase{u"'offen bis zum Ende", {u"'offen bis zum Ende"}},
                                           TokenCase{u"(offen bis zum Ende", {u"(offen bis zum Ende"}}));

} // namespace
