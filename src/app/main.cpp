#include "AppUtils.h"
#include "SystemUtils.h"

#include <QApplication>
#include <QStringList>

using namespace norvik;

namespace {

// the process arguments, read before the application object exists
QStringList processArguments(int argc, char** argv) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    return arguments;
}

// what is done before anything else: the options are in place before the first form asks
void initialiseUnits(const QStringList& arguments) {
    FillCmdParams(arguments);
    FillAppParams(arguments);
    CreateUserDataFolder();
}

} // namespace

int main(int argc, char** argv) {
    initialiseUnits(processArguments(argc, argv));
    InitResultToConsole();
    QApplication app(argc, argv);
    QApplication::setApplicationDisplayName(QStringLiteral("Orvenna Rückmeldesystem"));
    // the main window and its pages are not part of the program yet, so it ends here
    return 0;
}
