#include "PdfFromOutboxCommand.h"

#include <QFile>

int PdfFromOutboxCommand::run(QStringList arguments, QTextStream& out, QTextStream& err) const {
    const QString target = takeOption(arguments, QStringLiteral("--out"));
    if (target.isEmpty())
        throw ECliUsage(QStringLiteral("expects --out PDF"));
    const QString source = onlyArgument(arguments);
    QFile input(source);
    if (!input.open(QIODevice::ReadOnly)) {
        err << "cannot read " << source << '\n';
        return CliFailure;
    }
    const QByteArray bytes = input.readAll();
    const qsizetype start = bytes.indexOf("%PDF");
    if (start < 0) {
        err << source << " holds no PDF\n";
        return CliFailure;
    }
    QFile output(target);
    const QByteArray pdf = bytes.mid(start);
    if (!output.open(QIODevice::WriteOnly) || output.write(pdf) != pdf.size()) {
        err << "cannot write " << target << '\n';
        return CliFailure;
    }
    out << target << '\n';
    return CliSuccess;
}
