#include "ConfigCommand.h"

#include "TnvDBConfig.h"
#include "TnvDBConnection.h"
#include "TnvNamedValue.h"

#include <algorithm>

namespace {

QString requiredOption(const QString& name, const QString& value) {
    if (value.isEmpty())
        throw ECliUsage(QStringLiteral("needs %1").arg(name));
    return value;
}

} // namespace

int ConfigCommand::run(QStringList arguments, QTextStream& out, QTextStream& err) const {
    const QString action = arguments.isEmpty() ? QString() : arguments.takeFirst();
    if (action != QLatin1String("get") && action != QLatin1String("set"))
        throw ECliUsage(QStringLiteral("unknown action \"%1\"").arg(action));
    const QString file =
        requiredOption(QStringLiteral("--db FILE"), takeOption(arguments, QStringLiteral("--db")));
    const QString code =
        requiredOption(QStringLiteral("--code CODE"), takeOption(arguments, QStringLiteral("--code")));
    const QString user =
        requiredOption(QStringLiteral("--user USER"), takeOption(arguments, QStringLiteral("--user")));
    if (action == QLatin1String("get") && !arguments.isEmpty())
        throw ECliUsage(QStringLiteral("get expects no NAME=VALUE"));
    if (action == QLatin1String("set") && arguments.isEmpty())
        throw ECliUsage(QStringLiteral("set needs at least one NAME=VALUE"));
    for (const QString& assignment : arguments) {
        if (assignment.indexOf(u'=') < 1)
            throw ECliUsage(QStringLiteral("\"%1\" is no NAME=VALUE").arg(assignment));
    }
    try {
        norvik::TnvDBConnection conn;
        conn.SetAliasName(QStringLiteral("_dbData"));
        conn.InitDirectSQLiteDatabase(file);
        conn.SetConnected(true);
        if (action == QLatin1String("get"))
            Get(conn, code, user, out);
        else
            Set(conn, code, user, arguments);
        return CliSuccess;
    } catch (const std::exception& e) {
        err << "config: " << QString::fromUtf8(e.what()) << '\n';
        return CliFailure;
    }
}

void ConfigCommand::Get(norvik::TnvDBConnection& conn, const QString& code, const QString& user,
                        QTextStream& out) {
    const auto values = norvik::TnvDBConfig::LoadConfig(conn, code, user);
    QStringList lines;
    for (const norvik::TnvNamedValue* value : values->GetValues())
        lines.append(value->Name() + u'=' + value->AsString());
    std::sort(lines.begin(), lines.end(), [](const QString& left, const QString& right) {
        return left.section(u'=', 0, 0).compare(right.section(u'=', 0, 0), Qt::CaseInsensitive) < 0;
    });
    for (const QString& line : lines)
        out << line << '\n';
}

void ConfigCommand::Set(norvik::TnvDBConnection& conn, const QString& code, const QString& user,
                        const QStringList& assignments) {
    const auto values = norvik::TnvDBConfig::LoadConfig(conn, code, user);
    for (const QString& assignment : assignments) {
        const qsizetype equals = assignment.indexOf(u'=');
        values->SetValueAsString(assignment.left(equals), assignment.mid(equals + 1));
    }
    norvik::TnvDBConfig::SaveConfig(conn, code, user, *values);
}
