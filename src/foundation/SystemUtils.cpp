#include "SystemUtils.h"

#include <cstdio>

namespace norvik {

bool ResultToConsole = false;
bool ConsoleAllocated = false;

TParamTable& CmdParams() {
    static TParamTable table;
    return table;
}

void FillCmdParams(const QStringList& arguments) {
    CmdParams().fill(arguments, TParamTable::Positional::Keep);
}

QString GetCmdParam(const QString& name) {
    return CmdParams().value(name);
}

bool HasCmdParam(const QString& name) {
    return !GetCmdParam(name).isEmpty() || CmdParams().indexOfLine(name) >= 0;
}

void InitResultToConsole() {
    ResultToConsole = GetCmdParam(QStringLiteral("rc")) == QLatin1String("1");
    // every process here has a standard output already: there is no console to allocate
    ConsoleAllocated = ResultToConsole;
}

void FreeResultConsole() {
    if (!ConsoleAllocated)
        return;
    std::fflush(stdout);
    ConsoleAllocated = false;
}

} // namespace norvik
