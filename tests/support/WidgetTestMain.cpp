#include "RunTests.h"

// for tests of widgets and forms
#include <QApplication>

int main(int argc, char** argv) {
    return testsupport::RunTests<QApplication>(argc, argv);
}
