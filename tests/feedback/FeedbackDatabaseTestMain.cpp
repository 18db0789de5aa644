#include "TestEnvironment.h"

#include <QGuiApplication>
#include <gmock/gmock.h>

// The export lays the letter out as a PDF, which needs fonts and thus a GUI application;
// without a display it runs on the offscreen platform.
int main(int argc, char** argv) {
    testsupport::redirectProgramFolders();
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    ::testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
