#include "CliDispatcher.h"
#include "RuntimeFolder.h"

#include <QGuiApplication>
#include <QTextStream>
#include <cstdio>

// orvenna-cli shows what the program makes of its inputs: the command line, catalogues, JSON,
// numbers and dates. Output is UTF-8.
int main(int argc, char** argv) {
    // letters are laid out with real fonts, which needs a GUI application; it never shows a window
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    platform::ensureRuntimeFolder();
    QGuiApplication app(argc, argv);
    QStringList arguments = QCoreApplication::arguments();
    arguments.removeFirst();
    QTextStream out(stdout);
    QTextStream err(stderr);
    out.setEncoding(QStringConverter::Utf8);
    err.setEncoding(QStringConverter::Utf8);
    return CliDispatcher().run(arguments, out, err);
}
