#pragma once

#include "TParamTable.h"

#include <QString>
#include <QStringList>

namespace norvik {

// The command line as the program's options are read from: every argument, positional ones
// included, plus ExeName. No form looks at the raw command line.
TParamTable& CmdParams();
void FillCmdParams(const QStringList& arguments);

// the value of the option; empty for a bare switch and for an absent option
QString GetCmdParam(const QString& name);
// true for an option with a value, and for a bare switch of that name
bool HasCmdParam(const QString& name);

// the option "rc" has the value "1": the finished document goes to standard output
extern bool ResultToConsole;
// a console to write the result to exists; only looked for when ResultToConsole is set
extern bool ConsoleAllocated;

// Reads the option "rc" into ResultToConsole and ConsoleAllocated; the program does this first.
void InitResultToConsole();
// The program's last step: what was written for the caller is out before the process ends.
void FreeResultConsole();

} // namespace norvik
