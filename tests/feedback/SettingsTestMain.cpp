#include "NamedMessages.h"
#include "TestEnvironment.h"

#include <QApplication>
#include <gmock/gmock.h>

// The settings page needs a widget application; without a display it runs offscreen.
int main(int argc, char** argv) {
    testsupport::redirectProgramFolders();
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    norvik::RegisterNamedMessages();
    ::testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
