#include "RunTests.h"

// for tests that lay out text or paint: fonts need a GUI application
#include <QGuiApplication>

int main(int argc, char** argv) {
    return testsupport::RunTests<QGuiApplication>(argc, argv);
}
