#include "AppUtils.h"

#include "TestEnvironment.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <gtest/gtest.h>

using namespace norvik;

namespace {

struct VersionCase {
    const char16_t* version;
    const char16_t* number;
};

class VersionToNumberTextTest : public testing::TestWithParam<VersionCase> {};

TEST_P(VersionToNumberTextTest, GivesTenDigits) {
    EXPECT_EQ(VersionToNumberText(QString::fromUtf16(GetParam().version)),
              QString::fromUtf16(GetParam().number));
}

INSTANTIATE_TEST_SUITE_P(
    Versions, VersionToNumberTextTest,
    testing::Values(VersionCase{u"1.0.2.41", u"0010002041"}, VersionCase{u"", u"0000000000"},
                    VersionCase{u"2", u"0020000000"}, VersionCase{u"1.2", u"0010200000"},
                    VersionCase{u"a.b.c.d", u"0000000000"}, VersionCase{u"1.x.3.4", u"0010003004"},
                    VersionCase{u"1.2.3.4.5", u"0010203000"},
                    // neighbouring parts overlap, and that is accepted
                    VersionCase{u"1.100.0.0", u"0020000000"}, VersionCase{u"999.0.0.0", u"9990000000"},
                    VersionCase{u"1000.0.0.0", u"10000000000"}, VersionCase{u"-1.0.0.0", u"-0010000000"},
                    VersionCase{u"99999999999.0.0.0", u"0000000000"}));

TEST(AppUtilsTest, FileVersionHasFourNumbers) {
    const QRegularExpression pattern(QStringLiteral("^\\d+\\.\\d+\\.\\d+\\.\\d+$"));
    EXPECT_TRUE(pattern.match(GetFileVersionText()).hasMatch()) << GetFileVersionText().toStdString();
    EXPECT_NE(VersionToNumberText(GetFileVersionText()), QStringLiteral("0000000000"));
}

TEST(AppUtilsTest, UserDataFolderIsCreatedEmptyInTheConfigHome) {
    CreateUserDataFolder();
    CreateUserDataFolder();
    const QFileInfo folder(UserDataFolder());
    EXPECT_TRUE(folder.isDir());
    EXPECT_EQ(folder.fileName(), QStringLiteral("tarnwick"));
    EXPECT_TRUE(folder.absoluteFilePath().startsWith(testsupport::sandboxPath()));
    EXPECT_TRUE(QDir(folder.absoluteFilePath()).isEmpty());
}

TEST(AppUtilsTest, FolderThatCannotBeCreatedIsPassedOver) {
    testsupport::TempDir dir;
    const QString blocker = dir.writeFile(QStringLiteral("blocker"), "a file, no folder");
    const QByteArray saved = qgetenv("XDG_CONFIG_HOME");
    qputenv("XDG_CONFIG_HOME", blocker.toUtf8());
    EXPECT_NO_THROW(CreateUserDataFolder());
    EXPECT_FALSE(QFileInfo(UserDataFolder()).exists());
    qputenv("XDG_CONFIG_HOME", saved);
}

} // namespace
