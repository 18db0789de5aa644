#include "TestEnvironment.h"

#include <QApplication>
#include <gmock/gmock.h>

// The viewer is a widget and needs a widget application; without a display it runs on the
// offscreen platform.
int main(int argc, char** argv) {
    testsupport::redirectProgramFolders();
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    ::testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
