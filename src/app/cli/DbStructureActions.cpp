#include "DbStructureActions.h"

#include "CliCommand.h"
#include "TmodData.h"
#include "TnvDBConnection.h"
#include "TnvDBUpdate.h"

#include <QFile>

namespace {

const QString StructureAction = QStringLiteral("structure");
const QString UpdateAction = QStringLiteral("update");

// removes "--structure FILE" from the arguments and gives FILE; empty when absent
QString TakeStructureFile(QStringList& AArguments) {
    const qsizetype at = AArguments.indexOf(QStringLiteral("--structure"));
    if (at < 0)
        return {};
    if (at + 1 >= AArguments.size())
        throw ECliUsage(QStringLiteral("--structure needs a value"));
    const QString file = AArguments.at(at + 1);
    AArguments.remove(at, 2);
    return file;
}

QString OneLine(const QString& AStatement) {
    QString line = AStatement;
    return line.replace(u'\\', QStringLiteral("\\\\"))
        .replace(u'\r', QStringLiteral("\\r"))
        .replace(u'\n', QStringLiteral("\\n"));
}

} // namespace

bool DbStructureActions::Handles(const QString& AAction) {
    return AAction == StructureAction || AAction == UpdateAction;
}

void DbStructureActions::Run(const QString& AAction, norvik::TnvDBConnection& AConn, QStringList AArguments,
                             QTextStream& AOut) {
    if (AAction == StructureAction)
        Structure(AConn, AArguments, AOut);
    else
        Update(AConn, AArguments, AOut);
}

void DbStructureActions::Structure(norvik::TnvDBConnection& AConn, const QStringList& AArguments,
                                   QTextStream& AOut) {
    if (!AArguments.isEmpty())
        throw ECliUsage(QStringLiteral("structure expects no further arguments"));
    norvik::TnvDBUpdate update;
    update.Connection = &AConn;
    QStringList tables;
    update.GetTableNames(tables);
    QString text;
    update.GetDBStructure(tables, text);
    AOut << text;
}

void DbStructureActions::Update(norvik::TnvDBConnection& AConn, QStringList AArguments, QTextStream& AOut) {
    const QString file = TakeStructureFile(AArguments);
    if (!AArguments.isEmpty())
        throw ECliUsage(QStringLiteral("update expects only --structure FILE"));
    norvik::TnvDBUpdate update;
    update.Connection = &AConn;
    if (file.isEmpty()) {
        update.Structure = QStringList{TmodData::LoadResourceText(QStringLiteral("DBSTRUC"))};
    } else {
        QFile source(file);
        if (!source.open(QIODevice::ReadOnly))
            throw std::runtime_error(QStringLiteral("cannot read %1").arg(file).toStdString());
        update.Structure = QStringList{TmodData::LinesText(source.readAll())};
    }
    // a statement counts as run once the protocol records it
    QString pending;
    update.OnRunSQL = [&pending](norvik::TnvDBUpdate&, const QString& statement, bool&) {
        pending = statement;
    };
    update.OnProtocolLog = [&pending, &AOut](int, const QString& text) {
        if (!pending.isEmpty() && text == pending)
            AOut << OneLine(text) << '\n';
        pending.clear();
    };
    update.PerformCheck();
}
