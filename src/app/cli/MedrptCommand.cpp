#include "MedrptCommand.h"

#include "DiagnosticValues.h"
#include "Exception.h"
#include "TnvDiagnosticReport.h"

#include <QFile>

int MedrptCommand::run(QStringList arguments, QTextStream& out, QTextStream& err) const {
    const QString valuesFile = takeOption(arguments, QStringLiteral("--values"));
    const QString pdfFile = takeOption(arguments, QStringLiteral("--pdf"));
    const QString date = takeOption(arguments, QStringLiteral("--date"));
    if (valuesFile.isEmpty() || pdfFile.isEmpty() || !arguments.isEmpty())
        throw ECliUsage(QStringLiteral("expects --values FILE --pdf FILE [--date yyyy-mm-dd]"));
    const auto values = DiagnosticValues::Read(valuesFile);
    const norvik::TDateTime reportDate = DiagnosticValues::ReportDate(date);
    QFile pdf(pdfFile);
    if (!pdf.open(QIODevice::ReadOnly)) {
        err << "cannot read " << pdfFile << '\n';
        return CliFailure;
    }

    QString errors;
    try {
        if (!norvik::TnvDiagnosticReport::WriteDiagnosticReport(*values, pdf, errors, reportDate)) {
            // one failure a line; the file's own CR LF pairs would only show as stray characters here
            out << errors.split(QStringLiteral("\r\n")).join(u'\n') << '\n';
            return CliFailure;
        }
    } catch (const norvik::Exception& e) {
        err << e.message() << '\n';
        return CliFailure;
    }
    out << "ResultFileName=" << values->GetAsString(QStringLiteral("ResultFileName")) << '\n';
    return CliSuccess;
}
