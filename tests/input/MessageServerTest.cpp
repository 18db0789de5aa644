#include "EventLoopWait.h"
#include "MessageServerName.h"
#include "NamedMessageSink.h"
#include "TnvMessageServer.h"
#include "TnvNamedMessageEvent.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLocalSocket>
#include <QUuid>
#include <gtest/gtest.h>
#include <memory>

using namespace norvik;
using inputtests::WaitUntil;

namespace {

QString UniqueServerName() {
    return QStringLiteral("orvenna-test-") + QUuid::createUuid().toString(QUuid::Id128);
}

class MessageServerTest : public ::testing::Test {
protected:
    testsupport::NamedMessageSink sink;
    TnvMessageServer server{&sink};
    QString name = UniqueServerName();
    QLocalSocket client;

    void SetUp() override {
        ASSERT_TRUE(server.Listen(name));
        client.connectToServer(name);
        ASSERT_TRUE(WaitUntil([this] { return client.state() == QLocalSocket::ConnectedState; }));
    }

    // what the server answers to the bytes, one answer per line
    QStringList Send(const QByteArray& ABytes, int AAnswers) {
        client.write(ABytes);
        client.flush();
        QStringList answers;
        WaitUntil([&] {
            while (client.canReadLine())
                answers << QString::fromUtf8(client.readLine()).chopped(1);
            return answers.size() >= AAnswers;
        });
        return answers;
    }
};

TEST_F(MessageServerTest, MessageFromAnotherProgramArrivesAsEvent) {
    EXPECT_EQ(Send("CloseMyApplication\n", 1), QStringList{QStringLiteral("OK")});
    ASSERT_TRUE(WaitUntil([this] { return !sink.Received.isEmpty(); }));
    EXPECT_EQ(sink.Received, QStringList{QStringLiteral("CloseMyApplication|")});
}

TEST_F(MessageServerTest, ArgumentFollowsTheFirstColon) {
    EXPECT_EQ(Send("norvik_open_record:tblPatienten:4711\r\n", 1), QStringList{QStringLiteral("OK")});
    ASSERT_TRUE(WaitUntil([this] { return !sink.Received.isEmpty(); }));
    EXPECT_EQ(sink.Received, QStringList{QStringLiteral("norvik_open_record|tblPatienten:4711")});
}

TEST_F(MessageServerTest, ArgumentKeepsItsUmlauts) {
    EXPECT_EQ(Send("norvik_open_record:Müller Jürgen\n", 1), QStringList{QStringLiteral("OK")});
    ASSERT_TRUE(WaitUntil([this] { return !sink.Received.isEmpty(); }));
    EXPECT_EQ(sink.Received.first(), QStringLiteral("norvik_open_record|Müller Jürgen"));
}

TEST_F(MessageServerTest, SeveralLinesInOneWriteAreAnsweredInOrder) {
    const QStringList answers = Send("ResetFocus\nBogus\nFeedBackClose\n", 3);
    EXPECT_EQ(answers, (QStringList{QStringLiteral("OK"), QStringLiteral("ERR unknown message"),
                                    QStringLiteral("OK")}));
    ASSERT_TRUE(WaitUntil([this] { return sink.Received.size() == 2; }));
    EXPECT_EQ(sink.Received, (QStringList{QStringLiteral("ResetFocus|"), QStringLiteral("FeedBackClose|")}));
}

TEST_F(MessageServerTest, LineMayArriveInPieces) {
    client.write("WMEvaluate");
    client.flush();
    inputtests::RunEventLoop(30);
    EXPECT_FALSE(client.canReadLine());
    EXPECT_EQ(Send("ColorScheme\n", 1), QStringList{QStringLiteral("OK")});
}

struct BadLineCase {
    const char* Name;
    QByteArray Line;
    const char* Answer;
};

class BadMessageTest : public MessageServerTest, public ::testing::WithParamInterface<BadLineCase> {};

TEST_P(BadMessageTest, IsRefusedAndPostsNothing) {
    EXPECT_EQ(Send(GetParam().Line, 1), QStringList{QString::fromUtf8(GetParam().Answer)});
    EXPECT_EQ(Send("ResetFocus\n", 1), QStringList{QStringLiteral("OK")}) << "the connection stays usable";
    ASSERT_TRUE(WaitUntil([this] { return !sink.Received.isEmpty(); }));
    EXPECT_EQ(sink.Received, QStringList{QStringLiteral("ResetFocus|")});
}

INSTANTIATE_TEST_SUITE_P(Cases, BadMessageTest,
                         ::testing::Values(BadLineCase{"Unknown", "FormatC\n", "ERR unknown message"},
                                           BadLineCase{"Empty", "\n", "ERR empty message name"},
                                           BadLineCase{"OnlyArgument", ":42\n", "ERR empty message name"},
                                           BadLineCase{"InvalidUtf8",
                                                       "Reset\xff\xfe"
                                                       "Focus\n",
                                                       "ERR invalid UTF-8"},
                                           BadLineCase{"NulInName", QByteArray("Reset\0Focus\n", 12),
                                                       "ERR unknown message"}),
                         [](const auto& info) { return std::string(info.param.Name); });

TEST_F(MessageServerTest, OverlongLineEndsTheConnection) {
    const QStringList answers = Send(QByteArray(TnvMessageServer::MaxLineLength + 10, 'x'), 1);
    EXPECT_EQ(answers, QStringList{QStringLiteral("ERR line too long")});
    EXPECT_TRUE(WaitUntil([this] { return client.state() == QLocalSocket::UnconnectedState; }));
    EXPECT_TRUE(sink.Received.isEmpty());
}

TEST_F(MessageServerTest, SecondServerOfTheSameNameIsRefusedWhileTheFirstRuns) {
    testsupport::NamedMessageSink other;
    TnvMessageServer second(&other);
    EXPECT_FALSE(second.Listen(name));
    EXPECT_TRUE(server.IsListening());
    EXPECT_EQ(Send("ResetFocus\n", 1), QStringList{QStringLiteral("OK")});
}

TEST_F(MessageServerTest, ReceiverGoneMessageIsRefused) {
    testsupport::NamedMessageSink* shortLived = new testsupport::NamedMessageSink();
    TnvMessageServer orphaned(shortLived);
    const QString otherName = UniqueServerName();
    ASSERT_TRUE(orphaned.Listen(otherName));
    delete shortLived;
    EXPECT_EQ(orphaned.HandleLine("ResetFocus"), QByteArray("ERR no receiver"));
}

TEST(MessageServerStartTest, SocketLeftBehindIsTakenOver) {
    const QString name = UniqueServerName();
    // what a program that ended without closing its server leaves in the folder
    QFile stale(QDir(QDir::tempPath()).filePath(name));
    ASSERT_TRUE(stale.open(QIODevice::WriteOnly));
    stale.close();
    testsupport::NamedMessageSink sink;
    TnvMessageServer server(&sink);
    ASSERT_TRUE(server.Listen(name));
    QLocalSocket client;
    client.connectToServer(name);
    EXPECT_TRUE(WaitUntil([&] { return client.state() == QLocalSocket::ConnectedState; }));
}

TEST(MessageServerNameTest, OnePerUserWithASafeName) {
    EXPECT_EQ(platform::messageServerNameFor(QStringLiteral("anna")), QStringLiteral("orvenna-anna"));
    EXPECT_EQ(platform::messageServerNameFor(QStringLiteral("dr.huber_2-x")),
              QStringLiteral("orvenna-dr.huber_2-x"));
    EXPECT_EQ(platform::messageServerNameFor(QStringLiteral("Jörg K/../x")),
              QStringLiteral("orvenna-J_rg_K_.._x"));
    EXPECT_TRUE(platform::messageServerName().startsWith(QStringLiteral("orvenna-")));
    EXPECT_GT(platform::messageServerName().size(), 8);
}

} // namespace
