#include "NameHash.h"

#include <gtest/gtest.h>
#include <ostream>

using norvik::NameHash;

namespace {

struct HashCase {
    const char16_t* name;
    quint32 hash;
};

// names the case in test output
void PrintTo(const HashCase& c, std::ostream* os) {
    *os << QString::fromUtf16(c.name).toStdString();
}

class NameHashTest : public ::testing::TestWithParam<HashCase> {};

TEST_P(NameHashTest, GivesTheKnownValue) {
    EXPECT_EQ(NameHash(QString::fromUtf16(GetParam().name)), GetParam().hash);
}

INSTANTIATE_TEST_SUITE_P(SystemNames, NameHashTest,
                         ::testing::Values(HashCase{u"ID", 0x6F96F2D2}, HashCase{u"AnlageAm", 0xC9AC1D77},
                                           HashCase{u"VisibleState", 0x194BF397},
                                           // case does not matter
                                           HashCase{u"visiblestate", 0x194BF397},
                                           HashCase{u"id", 0x6F96F2D2}));

TEST(NameHash, NamesLongerThanOneRoundDiffer) {
    // more than twelve bytes: the tail goes through a second round of mixing
    EXPECT_NE(NameHash(QStringLiteral("AenderungVonX")), NameHash(QStringLiteral("AenderungVonY")));
    EXPECT_EQ(NameHash(QStringLiteral("AenderungVon")), NameHash(QStringLiteral("AENDERUNGVON")));
}

TEST(NameHash, UmlautsAreNotFolded) {
    // only ASCII letters are upper-cased on the way in
    EXPECT_NE(NameHash(QStringLiteral("Größe")), NameHash(QStringLiteral("GRÖSSE")));
    EXPECT_NE(NameHash(QStringLiteral("ä")), NameHash(QStringLiteral("Ä")));
}

} // namespace
