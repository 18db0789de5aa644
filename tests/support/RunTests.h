#pragma once

#include "NamedMessages.h"
#include "TestEnvironment.h"

#include <QByteArray>
#include <gmock/gmock.h>

namespace testsupport {

// The body of every test program: all program folders in a sandbox, the application object
// the code under test needs (core, GUI or widgets), and the named messages registered as the
// program registers them at its start. Without a display, GUI tests run offscreen.
template <class TApplication> int RunTests(int argc, char** argv) {
    redirectProgramFolders();
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    TApplication app(argc, argv);
    norvik::RegisterNamedMessages();
    ::testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}

} // namespace testsupport
