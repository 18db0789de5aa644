#include "CliDispatcher.h"

#include "BirthDateCommand.h"
#include "Clock.h"
#include "ConfigCommand.h"
#include "DateCommand.h"
#include "DbCommand.h"
#include "DemoCommand.h"
#include "ExportCommand.h"
#include "FloatCommand.h"
#include "HashNameCommand.h"
#include "HashStructureCommand.h"
#include "Iso8601Command.h"
#include "JsonCommand.h"
#include "LetterCommand.h"
#include "MedrptCommand.h"
#include "MedrptTextCommand.h"
#include "OpenDatabaseCommand.h"
#include "ParamsCommand.h"
#include "PdfFromOutboxCommand.h"
#include "PrepareCommand.h"
#include "QuestionsCommand.h"
#include "SVNrCommand.h"
#include "SqlCommand.h"
#include "TemplateCommand.h"
#include "TruthCommand.h"
#include "VersionNumberCommand.h"
#include "ZipCityCommand.h"

#include <QDateTime>

namespace {

const QString NowOption = QStringLiteral("--now");
const QString HelpOption = QStringLiteral("--help");

} // namespace

CliDispatcher::CliDispatcher() {
    m_commands.push_back(std::make_unique<ParamsCommand>());
    m_commands.push_back(std::make_unique<VersionNumberCommand>());
    m_commands.push_back(std::make_unique<JsonCommand>());
    m_commands.push_back(std::make_unique<TruthCommand>());
    m_commands.push_back(std::make_unique<FloatCommand>());
    m_commands.push_back(std::make_unique<DateCommand>());
    m_commands.push_back(std::make_unique<Iso8601Command>());
    m_commands.push_back(std::make_unique<QuestionsCommand>());
    m_commands.push_back(std::make_unique<SqlCommand>());
    m_commands.push_back(std::make_unique<HashNameCommand>());
    m_commands.push_back(std::make_unique<DbCommand>());
    m_commands.push_back(std::make_unique<ConfigCommand>());
    m_commands.push_back(std::make_unique<OpenDatabaseCommand>());
    m_commands.push_back(std::make_unique<HashStructureCommand>());
    m_commands.push_back(std::make_unique<TemplateCommand>());
    m_commands.push_back(std::make_unique<PdfFromOutboxCommand>());
    m_commands.push_back(std::make_unique<LetterCommand>());
    m_commands.push_back(std::make_unique<DemoCommand>());
    m_commands.push_back(std::make_unique<ExportCommand>());
    m_commands.push_back(std::make_unique<SVNrCommand>());
    m_commands.push_back(std::make_unique<ZipCityCommand>());
    m_commands.push_back(std::make_unique<BirthDateCommand>());
    m_commands.push_back(std::make_unique<PrepareCommand>());
    m_commands.push_back(std::make_unique<MedrptCommand>());
    m_commands.push_back(std::make_unique<MedrptTextCommand>());
}

int CliDispatcher::run(QStringList arguments, QTextStream& out, QTextStream& err) const {
    try {
        takeGlobalOptions(arguments);
        if (arguments.value(0) == HelpOption) {
            out << usage();
            return CliSuccess;
        }
        if (arguments.isEmpty())
            throw ECliUsage(QStringLiteral("no subcommand given"));
        const QString name = arguments.takeFirst();
        const CliCommand* command = find(name);
        if (!command)
            throw ECliUsage(QStringLiteral("unknown subcommand \"%1\"").arg(name));
        try {
            return command->run(arguments, out, err);
        } catch (const ECliUsage& e) {
            throw ECliUsage(name + QStringLiteral(": ") + e.message());
        }
    } catch (const ECliUsage& e) {
        err << "orvenna-cli: " << e.message() << '\n' << usage();
        return CliUsageError;
    }
}

const CliCommand* CliDispatcher::find(const QString& name) const {
    for (const auto& command : m_commands) {
        if (command->name() == name)
            return command.get();
    }
    return nullptr;
}

QString CliDispatcher::usage() const {
    QString text =
        QStringLiteral("usage: orvenna-cli [--now \"yyyy-mm-dd hh:nn:ss\"] SUBCOMMAND [ARGUMENTS]\n");
    for (const auto& command : m_commands)
        text += QStringLiteral("  ") + command->name() + QLatin1Char(' ') + command->synopsis() +
                QLatin1Char('\n');
    return text;
}

void CliDispatcher::takeGlobalOptions(QStringList& arguments) {
    // global options stand before the subcommand, so that its own arguments are never taken
    while (arguments.value(0) == NowOption) {
        if (arguments.size() < 2)
            throw ECliUsage(QStringLiteral("--now needs a moment \"yyyy-mm-dd hh:nn:ss\""));
        const QString text = arguments.at(1);
        const QDateTime moment = QDateTime::fromString(text, QStringLiteral("yyyy-MM-dd HH:mm:ss"));
        if (!moment.isValid())
            throw ECliUsage(QStringLiteral("--now: \"%1\" is no moment \"yyyy-mm-dd hh:nn:ss\"").arg(text));
        norvik::Clock::setFixed(moment);
        arguments.remove(0, 2);
    }
}
