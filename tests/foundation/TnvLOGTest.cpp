#include "TnvLOG.h"

#include "EConvertError.h"
#include "FixedClock.h"
#include "TestEnvironment.h"

#include <QBuffer>
#include <QFile>
#include <gtest/gtest.h>

using namespace norvik;

namespace {

const QString Ruler(89, u'-');

class TnvLOGTest : public ::testing::Test {
protected:
    testsupport::FixedClock clock{"2026-11-21 08:05:09"};
    TnvLOG log;
};

TEST_F(TnvLOGTest, LineIsIndentPrefixAndText) {
    log.SetPrefix(QStringLiteral("> "));
    log.IncrementIndent();
    log.Log(QStringLiteral("Satz"));
    EXPECT_EQ(log.Lines(), QStringList{QStringLiteral("  > Satz")});
}

TEST_F(TnvLOGTest, StampStandsInFrontOfEverything) {
    log.SetPrefix(QStringLiteral("P:"));
    log.SetIndent(3);
    log.Log(QStringLiteral("x"), true);
    EXPECT_EQ(log.Lines().first(), QStringLiteral("21.11.2026 08:05:09     P:x"));
}

TEST_F(TnvLOGTest, FormattedLine) {
    log.Log(QStringLiteral("%d von %s"), {3, QStringLiteral("fünf")});
    EXPECT_EQ(log.Lines().first(), QStringLiteral("3 von fünf"));
}

TEST_F(TnvLOGTest, FailingFormatLogsTheException) {
    log.Log(QStringLiteral("%d"), {QStringLiteral("drei")}, true);
    EXPECT_EQ(
        log.Lines().first(),
        QStringLiteral("21.11.2026 08:05:09  Exception: Format '%d' invalid or incompatible with argument"));
}

TEST_F(TnvLOGTest, ExceptionLineHasClassAndMessage) {
    const EConvertError error(QStringLiteral("kaputt"));
    log.Log(&error);
    EXPECT_EQ(log.Lines().first(),
              QStringLiteral("21.11.2026 08:05:09  Exception: EConvertError  -  kaputt"));
}

TEST_F(TnvLOGTest, NoExceptionLogsNothing) {
    log.Log(static_cast<const std::exception*>(nullptr));
    EXPECT_TRUE(log.Lines().isEmpty());
}

TEST_F(TnvLOGTest, Log2OnAnEmptyLogAddsALine) {
    log.Log2(QStringLiteral("x"), false);
    EXPECT_EQ(log.Lines(), QStringList{QStringLiteral("x")});
}

TEST_F(TnvLOGTest, Log2AppendsToTheLastLineWithABlank) {
    log.Log(QStringLiteral("a"));
    log.Log2(QStringLiteral("b"));
    log.Log2(QStringLiteral("c"), true);
    EXPECT_EQ(log.Lines(), (QStringList{QStringLiteral("a b"), QStringLiteral("c")}));
}

TEST_F(TnvLOGTest, Log2WithFailingFormatLogsLogException) {
    log.Log(QStringLiteral("a"));
    log.Log2(QStringLiteral("%s %s"), {QStringLiteral("eins")});
    EXPECT_EQ(log.Lines().first(), QStringLiteral("a LogException: No argument for format '%s %s'"));
}

TEST_F(TnvLOGTest, EmptyLineAndRuler) {
    log.LogCR();
    log.LogLine();
    EXPECT_EQ(log.Lines(), (QStringList{QString(), Ruler}));
}

TEST_F(TnvLOGTest, HeaderHasTitleStampAndNames) {
    log.SetUserName(QStringLiteral("Therapeutin"));
    log.CreateLogHeader(QStringLiteral("Import"));
    const QStringList lines = log.Lines();
    ASSERT_EQ(lines.size(), 7);
    EXPECT_EQ(lines[0], Ruler);
    EXPECT_EQ(lines[1], QStringLiteral("Import"));
    EXPECT_EQ(lines[2], QStringLiteral("21.11.2026 08:05:09  "));
    EXPECT_EQ(lines[3], QStringLiteral("Benutzername: Therapeutin"));
    EXPECT_TRUE(lines[4].startsWith(QStringLiteral("Computername: ")));
    EXPECT_TRUE(lines[5].startsWith(QStringLiteral("Windows Anmeldung: ")));
    EXPECT_EQ(lines[6], Ruler);
}

TEST_F(TnvLOGTest, FooterHasStampedText) {
    log.CreateLogFooter(QStringLiteral("fertig"));
    EXPECT_EQ(log.Lines(), (QStringList{Ruler, QStringLiteral("21.11.2026 08:05:09  fertig"), Ruler}));
}

TEST_F(TnvLOGTest, IndentNeverFallsBelowZero) {
    log.IncrementIndent();
    log.DecrementIndent();
    log.DecrementIndent();
    EXPECT_EQ(log.Indent(), 0);
}

TEST_F(TnvLOGTest, ClearResetsTheIndentAndClearLogKeepsIt) {
    log.IncrementIndent();
    log.Log(QStringLiteral("a"));
    log.ClearLog();
    EXPECT_TRUE(log.Lines().isEmpty());
    EXPECT_EQ(log.Indent(), TnvLOG::IndentStep);
    log.Log(QStringLiteral("b"));
    log.Clear();
    EXPECT_TRUE(log.Lines().isEmpty());
    EXPECT_EQ(log.Indent(), 0);
}

TEST_F(TnvLOGTest, EveryChangeOfTheLinesIsAnnounced) {
    int changes = 0;
    log.OnChange = [&changes, this](TnvLOG* sender) {
        EXPECT_EQ(sender, &log);
        ++changes;
    };
    log.Log(QStringLiteral("a"));
    log.Log2(QStringLiteral("b"));
    log.LogCR();
    log.LogLine();
    log.Clear();
    EXPECT_EQ(changes, 5);
}

TEST_F(TnvLOGTest, TextEndsEveryLineWithCarriageReturnAndLineFeed) {
    log.Log(QStringLiteral("a"));
    log.Log(QStringLiteral("b"));
    EXPECT_EQ(log.ToString(), QStringLiteral("a\r\nb\r\n"));
}

TEST_F(TnvLOGTest, SavedLogIsWindows1252) {
    log.Log(QStringLiteral("Grüße €"));
    const testsupport::TempDir dir;
    const QString path = dir.filePath(QStringLiteral("log.txt"));
    log.SaveLogToFile(path);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), QByteArray("Gr\xFC\xDF"
                                         "e \x80\r\n"));
}

TEST_F(TnvLOGTest, SaveToStreamWritesTheSameBytes) {
    log.Log(QStringLiteral("ö"));
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    log.SaveLogToStream(buffer);
    EXPECT_EQ(buffer.data(), QByteArray("\xF6\r\n"));
}

} // namespace
