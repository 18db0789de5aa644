#include "TZIPCityParts.h"

#include <gtest/gtest.h>

namespace {

struct SplitCase {
    const char16_t* text;
    const char16_t* country;
    const char16_t* postalCode;
    const char16_t* city;
};

class ZIPCityPartsTest : public testing::TestWithParam<SplitCase> {};

} // namespace

TEST_P(ZIPCityPartsTest, SplitsIntoCountryPostalCodeAndCity) {
    const TZIPCityParts parts = TZIPCityParts::Split(QString::fromUtf16(GetParam().text));
    EXPECT_EQ(parts.Country.toStdString(), QString::fromUtf16(GetParam().country).toStdString());
    EXPECT_EQ(parts.PostalCode.toStdString(), QString::fromUtf16(GetParam().postalCode).toStdString());
    EXPECT_EQ(parts.City.toStdString(), QString::fromUtf16(GetParam().city).toStdString());
}

INSTANTIATE_TEST_SUITE_P(
    Locations, ZIPCityPartsTest,
    testing::Values(SplitCase{u"1010 Wien", u"A", u"1010", u"Wien"},
                    SplitCase{u"A-1010 Wien", u"A", u"1010", u"Wien"},
                    SplitCase{u"D-80331 München", u"D", u"80331", u"München"},
                    SplitCase{u"CH-8000 Zürich Nord", u"CH", u"8000", u"Zürich Nord"},
                    // what stands behind a dash after the postal code is dropped
                    SplitCase{u"5020 Salz-burg", u"A", u"5020", u"Salz"},
                    SplitCase{u"1010", u"A", u"1010", u""}, SplitCase{u"D-80331", u"D", u"80331", u""},
                    SplitCase{u"", u"", u"", u""}, SplitCase{u"AB-", u"AB", u"", u""},
                    SplitCase{u"-1010 Wien", u"", u"1010", u"Wien"},
                    // only the first blank separates; the city keeps the rest as it stands
                    SplitCase{u"1010  Wien", u"A", u"1010", u" Wien"}));
