#include "TemplateCommand.h"

#include "BuiltInResources.h"

#include <QFile>

int TemplateCommand::run(QStringList arguments, QTextStream& out, QTextStream& err) const {
    const QString target = takeOption(arguments, QStringLiteral("--out"));
    if (target.isEmpty() || !arguments.isEmpty())
        throw ECliUsage(QStringLiteral("expects --out FILE and nothing else"));
    const QByteArray docx = BuiltInResources::feedbackTemplate();
    QFile file(target);
    if (!file.open(QIODevice::WriteOnly) || file.write(docx) != docx.size()) {
        err << "cannot write " << target << '\n';
        return CliFailure;
    }
    out << target << '\n';
    return CliSuccess;
}
