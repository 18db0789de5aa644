#include "RunTests.h"

#include <QCoreApplication>

int main(int argc, char** argv) {
    return testsupport::RunTests<QCoreApplication>(argc, argv);
}
