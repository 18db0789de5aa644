#include "HashStructureCommand.h"

#include "TmodData.h"

#include <QFile>

int HashStructureCommand::run(QStringList arguments, QTextStream& out, QTextStream& err) const {
    const QString file = optionalArgument(arguments, QString());
    QString text = TmodData::LoadResourceText(QStringLiteral("DBSTRUC"));
    if (!file.isEmpty()) {
        QFile source(file);
        if (!source.open(QIODevice::ReadOnly)) {
            err << "hash-structure: cannot read " << file << '\n';
            return CliFailure;
        }
        text = TmodData::LinesText(source.readAll());
    }
    out << TmodData::StructureHash(text) << '\n';
    return CliSuccess;
}
