#include "TDaMeExportOptions.h"

#include "SystemUtils.h"

TDaMeExportOptions TDaMeExportOptions::FromCommandLine() {
    TDaMeExportOptions options;
    options.ReturnToCaller = norvik::GetCmdParam(QStringLiteral("rc")) == QLatin1String("1");
    if (norvik::HasCmdParam(QStringLiteral("rf")))
        options.ResultCopyPath = norvik::GetCmdParam(QStringLiteral("rf"));
    options.ConsoleAllocated = norvik::ConsoleAllocated;
    return options;
}
