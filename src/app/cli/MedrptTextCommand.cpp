#include "MedrptTextCommand.h"

#include "DiagnosticValues.h"
#include "TnvDiagnosticReport.h"

int MedrptTextCommand::run(QStringList arguments, QTextStream& out, QTextStream&) const {
    const QString valuesFile = takeOption(arguments, QStringLiteral("--values"));
    const QString date = takeOption(arguments, QStringLiteral("--date"));
    if (valuesFile.isEmpty() || !arguments.isEmpty())
        throw ECliUsage(QStringLiteral("expects --values FILE [--date yyyy-mm-dd]"));
    const auto values = DiagnosticValues::Read(valuesFile);

    norvik::TnvDiagnosticTextEntry entry;
    entry.APATID = 1;
    entry.ANumber = 0;
    entry.ADate = DiagnosticValues::ReportDate(date);
    entry.AText = values->GetAsString(QStringLiteral("AText"));
    entry.AReason = values->GetAsString(QStringLiteral("AReason"));
    out << norvik::TnvDiagnosticReport::BuildDiagnosticMessage(*values, {entry}) << '\n';
    return CliSuccess;
}
