#include "DebugLog.h"

#include "EConvertError.h"
#include "FixedClock.h"
#include "TestEnvironment.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <gtest/gtest.h>
#include <thread>
#include <vector>

using namespace norvik;

namespace {

QByteArray ReadBytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Sets an environment variable for the lifetime of the object.
class ScopedEnvironment {
public:
    ScopedEnvironment(const char* name, const QString& value)
        : m_name(name)
        , m_old(qgetenv(name)) {
        qputenv(name, value.toUtf8());
    }
    ~ScopedEnvironment() { qputenv(m_name, m_old); }
    ScopedEnvironment(const ScopedEnvironment&) = delete;
    ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;

private:
    const char* m_name;
    QByteArray m_old;
};

// Each test writes into a log folder of its own and starts from a program without switches.
class DebugLogTest : public ::testing::Test {
protected:
    testsupport::TempDir logDir;
    ScopedEnvironment logDirVariable{"ORVENNA_LOG_DIR", logDir.path()};
    testsupport::FixedClock clock{"2026-11-21 13:45:07"};

    void SetUp() override { Start({}); }
    void TearDown() override { InitDebugState(QCoreApplication::arguments()); }

    static void Start(const QStringList& switches) {
        InitDebugState(QStringList{QStringLiteral("/opt/orvenna/orvenna.bin")} + switches);
    }
    QString LogFile(const QString& name) const { return logDir.filePath(name); }
};

TEST_F(DebugLogTest, DefaultFilesLieInTheLogFolder) {
    EXPECT_EQ(ProgramFolder(), logDir.path());
    EXPECT_EQ(DebugBaseName(), QStringLiteral("orvenna"));
    EXPECT_EQ(DebugFileName(), LogFile(QStringLiteral("DEBUG.LOG")));
    EXPECT_EQ(ExceptionsFileName(), LogFile(QStringLiteral("EXCEPTIONS.LOG")));
    EXPECT_EQ(AppDebugFileName(), LogFile(QStringLiteral("orvenna.log")));
    EXPECT_EQ(DebugLevel(), 0);
}

TEST_F(DebugLogTest, ProgramWithoutNameWritesToAppdebugLog) {
    InitDebugState({});
    EXPECT_EQ(AppDebugFileName(), LogFile(QStringLiteral("appdebug.log")));
}

TEST_F(DebugLogTest, SqlErrorFileGoesToTheWorkingFolderOnlyWhenItExists) {
    const testsupport::TempDir temp;
    const ScopedEnvironment tmpdir("TMPDIR", temp.path());
    Start({});
    EXPECT_EQ(DebugWorkingFolder(), temp.filePath(QStringLiteral("orvenna")));
    EXPECT_EQ(SQLErrorFileName(), LogFile(QStringLiteral("sqlerrors.log")));

    ASSERT_TRUE(QDir(temp.path()).mkdir(QStringLiteral("orvenna")));
    Start({});
    EXPECT_EQ(SQLErrorFileName(), temp.filePath(QStringLiteral("orvenna/sqlerrors.log")));
}

struct LevelCase {
    const char* argument;
    int level;
};

class DebugLevelSwitchTest : public DebugLogTest, public ::testing::WithParamInterface<LevelCase> {};

TEST_P(DebugLevelSwitchTest, SetsTheLevel) {
    Start({QString::fromLatin1(GetParam().argument)});
    EXPECT_EQ(DebugLevel(), GetParam().level);
}

INSTANTIATE_TEST_SUITE_P(Switches, DebugLevelSwitchTest,
                         ::testing::Values(LevelCase{"/DEBUGLEVEL:8", 8}, LevelCase{"/debuglevel:8", 8},
                                           LevelCase{"/DebugLevel:3", 3}, LevelCase{"/DEBUGLEVEL:x", 1},
                                           LevelCase{"/DEBUGLEVEL:", 1}, LevelCase{"/DEBUGLEVEL", 0},
                                           LevelCase{"-DEBUGLEVEL:8", 0}, LevelCase{"DEBUGLEVEL:8", 0}));

TEST_F(DebugLogTest, TheProgramFileItselfIsNoSwitch) {
    InitDebugState({QStringLiteral("/DEBUGLEVEL:5")});
    EXPECT_EQ(DebugLevel(), 0);
}

TEST_F(DebugLogTest, FileSwitchesNameTheFiles) {
    const QString debugFile = LogFile(QStringLiteral("eigene/debug.txt"));
    Start({QStringLiteral("/debugfile:") + debugFile,
           QStringLiteral("/APPDEBUGFILE:") + logDir.path() + QStringLiteral("//app//trace.log")});
    EXPECT_EQ(DebugFileName(), debugFile);
    EXPECT_EQ(AppDebugFileName(), LogFile(QStringLiteral("app/trace.log")));
}

TEST_F(DebugLogTest, TheLastSwitchOfAKindWins) {
    Start({QStringLiteral("/DEBUGLEVEL:2"), QStringLiteral("/DEBUGLEVEL:9")});
    EXPECT_EQ(DebugLevel(), 9);
}

TEST_F(DebugLogTest, WithoutSwitchesTracingWritesNothingAndCreatesNoFile) {
    DebugLog(8, QStringLiteral("  TnvNextNumberCache.GetNextNumber: try to find entry in cache"));
    DebugLog(1, QStringLiteral("Stufe 1"));
    EXPECT_FALSE(QFile::exists(AppDebugFileName()));
    EXPECT_TRUE(QDir(logDir.path()).isEmpty());
}

TEST_F(DebugLogTest, LevelZeroIsWrittenEvenWithoutSwitches) {
    DebugLog(0, QStringLiteral("Start"));
    EXPECT_EQ(ReadBytes(AppDebugFileName()), QByteArray("21.11.26 13:45:07 Start\r\n"));
}

TEST_F(DebugLogTest, MessagesUpToTheLevelAreWrittenAndAboveAreDropped) {
    Start({QStringLiteral("/DEBUGLEVEL:8")});
    DebugLog(7, QStringLiteral("sieben"));
    DebugLog(8, QStringLiteral("acht"));
    DebugLog(9, QStringLiteral("neun"));
    EXPECT_EQ(ReadBytes(AppDebugFileName()),
              QByteArray("21.11.26 13:45:07 sieben\r\n21.11.26 13:45:07 acht\r\n"));
}

TEST_F(DebugLogTest, FormattedMessageIsExpanded) {
    Start({QStringLiteral("/DEBUGLEVEL:8")});
    DebugLog(8, QStringLiteral("  Tabelle %s: %d IDs"), {QStringLiteral("tblPatienten"), 10});
    EXPECT_EQ(ReadBytes(AppDebugFileName()),
              QByteArray("21.11.26 13:45:07   Tabelle tblPatienten: 10 IDs\r\n"));
}

TEST_F(DebugLogTest, FailingFormatWritesTheFormatInstead) {
    Start({QStringLiteral("/DEBUGLEVEL:8")});
    EXPECT_NO_THROW(DebugLog(1, QStringLiteral("%d Zeilen"), {QStringLiteral("viele")}));
    EXPECT_NO_THROW(DebugLog(1, QStringLiteral("%s und %s"), {QStringLiteral("eins")}));
    EXPECT_EQ(
        ReadBytes(AppDebugFileName()),
        QByteArray("21.11.26 13:45:07 Exception: %d Zeilen\r\n21.11.26 13:45:07 Exception: %s und %s\r\n"));
}

TEST_F(DebugLogTest, DroppedMessageIsNotEvenFormatted) {
    DebugLog(8, QStringLiteral("%d"), {QStringLiteral("kein Wert")});
    EXPECT_FALSE(QFile::exists(AppDebugFileName()));
}

TEST_F(DebugLogTest, LineIsWrittenInWindows1252WithCarriageReturnAndLineFeed) {
    const QString file = LogFile(QStringLiteral("umlaute.log"));
    DebugToFile(QStringLiteral("Größe: 5 €"), file);
    EXPECT_EQ(ReadBytes(file), QByteArray("21.11.26 13:45:07 Gr\xF6\xDF"
                                          "e: 5 \x80\r\n"));
}

TEST_F(DebugLogTest, StampAndLineEndAreOptional) {
    const QString file = LogFile(QStringLiteral("roh.log"));
    DebugToFile(QStringLiteral("ä"), file, false, false);
    DebugToFile(QStringLiteral("b"), file, false, true);
    DebugToFile(QStringLiteral("c"), file, true, false);
    EXPECT_EQ(ReadBytes(file), QByteArray("\xE4"
                                          "b\r\n21.11.26 13:45:07 c"));
}

TEST_F(DebugLogTest, FileIsAppendedTo) {
    const QString file = logDir.writeFile(QStringLiteral("alt.log"), QByteArray("vorher\r\n"));
    DebugToFile(QStringLiteral("nachher"), file);
    EXPECT_EQ(ReadBytes(file), QByteArray("vorher\r\n21.11.26 13:45:07 nachher\r\n"));
}

TEST_F(DebugLogTest, EmptyFileNameWritesDebugTxtInTheLogFolder) {
    DebugToFile(QStringLiteral("ohne Namen"));
    EXPECT_EQ(ReadBytes(LogFile(QStringLiteral("Debug.txt"))),
              QByteArray("21.11.26 13:45:07 ohne Namen\r\n"));
}

TEST_F(DebugLogTest, FailedWriteRaisesAndReleasesTheLock) {
    const QString unreachable = LogFile(QStringLiteral("fehlt/ordner/x.log"));
    EXPECT_THROW(DebugToFile(QStringLiteral("x"), unreachable), EDebugFileError);
    const QString file = LogFile(QStringLiteral("danach.log"));
    DebugToFile(QStringLiteral("geht"), file);
    EXPECT_EQ(ReadBytes(file), QByteArray("21.11.26 13:45:07 geht\r\n"));
}

TEST_F(DebugLogTest, ConcurrentWritersProduceWholeLines) {
    const QString file = LogFile(QStringLiteral("threads.log"));
    constexpr int Threads = 8;
    constexpr int LinesPerThread = 250;
    std::vector<std::thread> writers;
    for (int t = 0; t < Threads; ++t) {
        writers.emplace_back([t, &file]() {
            for (int i = 0; i < LinesPerThread; ++i)
                DebugToFile(QStringLiteral("Faden %1 Zeile %2 ").arg(t).arg(i) + QString(60, u'ö'), file);
        });
    }
    for (std::thread& writer : writers)
        writer.join();

    QList<QByteArray> lines = ReadBytes(file).split('\n');
    ASSERT_EQ(lines.takeLast(), QByteArray());
    ASSERT_EQ(lines.size(), Threads * LinesPerThread);
    QSet<QByteArray> seen;
    for (const QByteArray& line : lines) {
        ASSERT_TRUE(line.startsWith("21.11.26 13:45:07 Faden ")) << line.constData();
        ASSERT_TRUE(line.endsWith(QByteArray(QByteArray(60, '\xF6') + '\r'))) << line.constData();
        seen.insert(line);
    }
    EXPECT_EQ(seen.size(), Threads * LinesPerThread);
}

TEST_F(DebugLogTest, SqlErrorIsWrittenWithTimeClassMessageAndStatement) {
    const EConvertError error(QStringLiteral("kein Datum"));
    LogSQLError(&error, QStringLiteral("SELECT * FROM tblPatienten"));
    EXPECT_EQ(ReadBytes(SQLErrorFileName()),
              QByteArray("21.11.26 13:45:07 Datum/Zeit: 21.11.2026 13:45:07\r\n"
                         "Error: EConvertError (kein Datum)\r\n"
                         "ASQL:\r\nSELECT * FROM tblPatienten\r\n"));
}

TEST_F(DebugLogTest, SqlErrorWithoutExceptionHasAnEmptyErrorText) {
    LogSQLError(nullptr, QStringLiteral("DELETE FROM t"));
    EXPECT_EQ(
        ReadBytes(SQLErrorFileName()),
        QByteArray(
            "21.11.26 13:45:07 Datum/Zeit: 21.11.2026 13:45:07\r\nError: \r\nASQL:\r\nDELETE FROM t\r\n"));
}

TEST_F(DebugLogTest, LogFolderComesFromTheEnvironment) {
    const testsupport::TempDir other;
    const ScopedEnvironment variable("ORVENNA_LOG_DIR", other.path() + QStringLiteral("//"));
    Start({});
    EXPECT_EQ(ProgramFolder(), other.path());
    DebugLog(0, QStringLiteral("hier"));
    EXPECT_TRUE(QFile::exists(other.filePath(QStringLiteral("orvenna.log"))));
}

TEST(DebugLogArgumentsTest, ProcessArgumentsAreThoseOfTheApplication) {
    EXPECT_EQ(ProcessArguments(), QCoreApplication::arguments());
}

struct PathCase {
    const char* in;
    const char* out;
};

class CleanDebugPathTest : public ::testing::TestWithParam<PathCase> {};

TEST_P(CleanDebugPathTest, CollapsesDoubledSeparators) {
    EXPECT_EQ(CleanDebugPath(QString::fromLatin1(GetParam().in)), QString::fromLatin1(GetParam().out));
}

INSTANTIATE_TEST_SUITE_P(Paths, CleanDebugPathTest,
                         ::testing::Values(PathCase{"/a//b", "/a/b"}, PathCase{"/a///b/", "/a/b/"},
                                           PathCase{"//server/share//x", "//server/share/x"},
                                           PathCase{"a/b", "a/b"}, PathCase{"", ""}));

} // namespace
