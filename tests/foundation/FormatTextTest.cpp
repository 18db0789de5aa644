#include "FormatText.h"

#include "EConvertError.h"

#include <gtest/gtest.h>
#include <vector>

using namespace norvik;

namespace {

struct FormatCase {
    const char16_t* format;
    std::vector<Variant> args;
    const char16_t* expected;
};

QString Expand(const QString& format, const std::vector<Variant>& args) {
    switch (args.size()) {
    case 0:
        return FormatText(format, {});
    case 1:
        return FormatText(format, {args[0]});
    case 2:
        return FormatText(format, {args[0], args[1]});
    default:
        return FormatText(format, {args[0], args[1], args[2]});
    }
}

class FormatTextTest : public ::testing::TestWithParam<FormatCase> {};

TEST_P(FormatTextTest, Expands) {
    EXPECT_EQ(Expand(QString::fromUtf16(GetParam().format), GetParam().args),
              QString::fromUtf16(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, FormatTextTest,
    ::testing::Values(
        FormatCase{u"ohne", {}, u"ohne"}, FormatCase{u"100%%", {}, u"100%"},
        FormatCase{u"%d", {qint32(-42)}, u"-42"}, FormatCase{u"%d", {qint64(1) << 40}, u"1099511627776"},
        FormatCase{u"[%5d]", {7}, u"[    7]"}, FormatCase{u"[%-5d]", {7}, u"[7    ]"},
        FormatCase{u"%.3d", {7}, u"007"}, FormatCase{u"%.3d", {-7}, u"-007"}, FormatCase{u"%x", {255}, u"FF"},
        FormatCase{u"%u", {12}, u"12"}, FormatCase{u"%s!", {u"Grüß"}, u"Grüß!"},
        FormatCase{u"%.2s", {u"abc"}, u"ab"}, FormatCase{u"%f", {1234.5}, u"1234,50"},
        FormatCase{u"%.1f", {1234.56}, u"1234,6"}, FormatCase{u"%.0n", {1234567.89}, u"1.234.568"},
        FormatCase{u"%n", {-1234.5}, u"-1.234,50"}, FormatCase{u"%n", {123.0}, u"123,00"},
        FormatCase{u"%e", {1234.5}, u"1,23450000000000E+003"}, FormatCase{u"%.3e", {-0.00012}, u"-1,20E-004"},
        FormatCase{u"%g", {0.5}, u"0,5"}, FormatCase{u"%1:s-%0:s-%s", {u"a", u"b"}, u"b-a-b"},
        FormatCase{u"[%*d]", {4, 3}, u"[   3]"}, FormatCase{u"%D", {5}, u"5"}));

class FormatTextErrorTest : public ::testing::TestWithParam<FormatCase> {};

TEST_P(FormatTextErrorTest, Raises) {
    EXPECT_THROW(Expand(QString::fromUtf16(GetParam().format), GetParam().args), EConvertError);
}

INSTANTIATE_TEST_SUITE_P(Cases, FormatTextErrorTest,
                         ::testing::Values(FormatCase{u"%d", {}, u""}, FormatCase{u"%s %s", {u"a"}, u""},
                                           FormatCase{u"%d", {u"abc"}, u""}, FormatCase{u"%f", {u"x"}, u""},
                                           FormatCase{u"%q", {1}, u""}, FormatCase{u"ende %", {1}, u""},
                                           FormatCase{u"%5:d", {1}, u""},
                                           FormatCase{u"%99999999999d", {1}, u""}));

TEST(FormatTextMessageTest, NamesTheFormat) {
    try {
        FormatText(QStringLiteral("%d Stück"), {QStringLiteral("x")});
        FAIL() << "no exception";
    } catch (const EConvertError& error) {
        EXPECT_EQ(error.message(), QStringLiteral("Format '%d Stück' invalid or incompatible with argument"));
    }
}

} // namespace
