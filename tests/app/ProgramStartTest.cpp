#include "CliProcess.h"
#include "TestEnvironment.h"

#include <QDir>
#include <QFileInfo>
#include <QProcessEnvironment>
#include <gtest/gtest.h>

namespace {

// The program starts without a window for now: it reads its options, creates the per-user
// folder and ends.
TEST(ProgramStartTest, CreatesTheUserFolderAndEndsCleanly) {
    const QString configHome =
        QProcessEnvironment::systemEnvironment().value(QStringLiteral("XDG_CONFIG_HOME"));
    ASSERT_TRUE(configHome.startsWith(testsupport::sandboxPath()));
    QDir(configHome).rmdir(QStringLiteral("tarnwick"));
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const ProcessRun run =
        runProgram(QStringLiteral(ORVENNA_PROGRAM_PATH),
                   {QStringLiteral("/rc:1"), QStringLiteral("/q"), QStringLiteral("loose")});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TRUE(run.out.isEmpty());
    EXPECT_TRUE(QFileInfo(QDir(configHome).filePath(QStringLiteral("tarnwick"))).isDir());
}

} // namespace
