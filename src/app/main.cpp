#include "AppUtils.h"
#include "MessageServerName.h"
#include "NamedMessages.h"
#include "SystemUtils.h"
#include "TMainForm.h"
#include "TStartupProbe.h"
#include "TmodData.h"
#include "TnvMessageServer.h"

#include <QApplication>
#include <QPointer>
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
    RegisterNamedMessages();
}

// The main window with its first pages, the message loop, and the window's end. Another
// program of this user may send named messages, such as "CloseMyApplication", meanwhile.
int runMainForm(QApplication& AApp, TmodData& AData) {
    QPointer<TMainForm> form = new TMainForm(AData);
    if (TStartupProbe::Requested())
        new TStartupProbe(form);
    TnvMessageServer server(form);
    server.Listen(platform::messageServerName());
    form->show();
    const int result = AApp.exec();
    // the window is gone before the data module it uses
    delete form.data();
    return result;
}

} // namespace

int main(int argc, char** argv) {
    initialiseUnits(processArguments(argc, argv));
    InitResultToConsole();
    QApplication app(argc, argv);
    SetApplicationTitle(QStringLiteral("Orvenna Rückmeldesystem"));
    QApplication::setWindowIcon(TMainForm::ProgramIcon());
    TmodData data;
    const int result = runMainForm(app, data);
    FreeResultConsole();
    return result;
}
