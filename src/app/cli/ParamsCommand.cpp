#include "ParamsCommand.h"

#include "AppUtils.h"
#include "SystemUtils.h"

#include <QCoreApplication>

using namespace norvik;

namespace {

void printWithoutExeName(const TParamTable& table, QTextStream& out) {
    for (const QString& line : table.lines()) {
        if (TParamTable::nameOfLine(line).compare(QLatin1String("ExeName"), Qt::CaseInsensitive) != 0)
            out << line << '\n';
    }
}

} // namespace

int ParamsCommand::run(QStringList arguments, QTextStream& out, QTextStream&) const {
    arguments.prepend(QCoreApplication::applicationFilePath());
    FillCmdParams(arguments);
    FillAppParams(arguments);
    printWithoutExeName(CmdParams(), out);
    out << "--\n";
    printWithoutExeName(AppParams(), out);
    return CliSuccess;
}
