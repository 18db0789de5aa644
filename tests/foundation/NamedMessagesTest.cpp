#include "NamedMessages.h"

#include "NamedMessageSink.h"
#include "TnvNamedMessageEvent.h"

#include <QCoreApplication>
#include <QSet>
#include <gtest/gtest.h>

using namespace norvik;

namespace {

TEST(NamedMessagesTest, EveryMessageHasATypeOfItsOwn) {
    RegisterNamedMessages();
    QSet<int> types;
    for (const QString& name : NamedMessages::All()) {
        const QEvent::Type type = NamedMessageType(name);
        EXPECT_GE(type, QEvent::User) << name.toStdString();
        types.insert(type);
    }
    EXPECT_EQ(types.size(), 8);
}

TEST(NamedMessagesTest, ProgramKnowsItsEightMessages) {
    EXPECT_EQ(
        NamedMessages::All(),
        (QStringList{QStringLiteral("FeedBackClose"), QStringLiteral("ResetFocus"),
                     QStringLiteral("nvRefocusAgain"), QStringLiteral("norvik_open_record"),
                     QStringLiteral("norvik_close_tools_for_update"), QStringLiteral("CloseMyApplication"),
                     QStringLiteral("WMEvaluateColorScheme"), QStringLiteral("WMSM_CHECKSMARTHELPDISPLAY")}));
}

TEST(NamedMessagesTest, NameKeepsItsTypeWhateverTheLetterCase) {
    const QEvent::Type type = RegisterNamedMessage(QStringLiteral("CloseMyApplication"));
    EXPECT_EQ(RegisterNamedMessage(QStringLiteral("closemyapplication")), type);
    EXPECT_EQ(NamedMessageType(QStringLiteral("CLOSEMYAPPLICATION")), type);
}

TEST(NamedMessagesTest, ForeignNameIsNoMessageOfTheProgram) {
    EXPECT_EQ(NamedMessageType(QStringLiteral("FormatHardDisk")), QEvent::None);
    EXPECT_EQ(NamedMessageType(QString()), QEvent::None);
    EXPECT_NE(RegisterNamedMessage(QStringLiteral("SomethingPrivate")), QEvent::None);
    EXPECT_EQ(NamedMessageType(QStringLiteral("SomethingPrivate")), QEvent::None);
}

TEST(NamedMessagesTest, PostedMessageArrivesWithArgumentInTheProgramsSpelling) {
    testsupport::NamedMessageSink sink;
    EXPECT_TRUE(
        PostNamedMessage(&sink, QStringLiteral("norvik_OPEN_record"), QStringLiteral("tblPatienten:42")));
    EXPECT_TRUE(sink.Received.isEmpty()); // not before the event loop runs
    QCoreApplication::sendPostedEvents(&sink);
    EXPECT_EQ(sink.Received, QStringList{QStringLiteral("norvik_open_record|tblPatienten:42")});
}

TEST(NamedMessagesTest, UnknownNameOrNoReceiverIsNotPosted) {
    testsupport::NamedMessageSink sink;
    EXPECT_FALSE(PostNamedMessage(&sink, QStringLiteral("Unbekannt")));
    EXPECT_FALSE(PostNamedMessage(nullptr, QStringLiteral("ResetFocus")));
    QCoreApplication::sendPostedEvents(&sink);
    EXPECT_TRUE(sink.Received.isEmpty());
}

} // namespace
