#include "DbCommand.h"

#include "DbStructureActions.h"
#include "SQLiteDateText.h"
#include "TnvDBConnection.h"

#include <QRegularExpression>

namespace {

QString sqlArgument(QStringList& arguments) {
    if (arguments.isEmpty())
        throw ECliUsage(QStringLiteral("needs a statement"));
    return arguments.takeFirst();
}

// one value on one line: tabs, line breaks and backslashes are written as escapes
QString escaped(const QString& text) {
    QString result;
    result.reserve(text.size());
    for (const QChar c : text) {
        if (c == u'\\')
            result += QStringLiteral("\\\\");
        else if (c == u'\t')
            result += QStringLiteral("\\t");
        else if (c == u'\n')
            result += QStringLiteral("\\n");
        else if (c == u'\r')
            result += QStringLiteral("\\r");
        else
            result += c;
    }
    return result;
}

// dates as SQLite stores them, bytes in base64, NULL as nothing
QString fieldText(const norvik::TnvField& field) {
    if (field.IsNull())
        return QString();
    switch (field.Value().valueType()) {
    case norvik::VarType::Date:
        return norvik::SQLiteDateText::FromDateTime(field.AsDateTime());
    case norvik::VarType::Bytes:
        return QString::fromLatin1(field.AsBytes().toBase64());
    case norvik::VarType::Double:
        return QString::number(field.AsFloat(), 'g', 15);
    default:
        return escaped(field.AsString());
    }
}

} // namespace

int DbCommand::run(QStringList arguments, QTextStream& out, QTextStream& err) const {
    const QString action = arguments.isEmpty() ? QString() : arguments.takeFirst();
    const QString file = takeOption(arguments, QStringLiteral("--db"));
    if (file.isEmpty())
        throw ECliUsage(QStringLiteral("needs --db FILE"));
    if (action != QLatin1String("query") && action != QLatin1String("exec") &&
        action != QLatin1String("genid") && !DbStructureActions::Handles(action))
        throw ECliUsage(QStringLiteral("unknown action \"%1\"").arg(action));
    try {
        norvik::TnvDBConnection conn;
        conn.SetAliasName(QStringLiteral("_dbData"));
        conn.InitDirectSQLiteDatabase(file);
        conn.SetConnected(true);
        if (DbStructureActions::Handles(action))
            DbStructureActions::Run(action, conn, arguments, out);
        else if (action == QLatin1String("query"))
            Query(conn, arguments, out);
        else if (action == QLatin1String("exec"))
            Exec(conn, arguments, out);
        else
            GenID(conn, arguments, out);
        return CliSuccess;
    } catch (const ECliUsage&) {
        throw;
    } catch (const std::exception& e) {
        err << "db: " << QString::fromUtf8(e.what()) << '\n';
        return CliFailure;
    }
}

void DbCommand::BindParams(const QStringList& texts, norvik::TnvParams& params) {
    static const QRegularExpression number(QStringLiteral("^-?[0-9]{1,18}$"));
    for (const QString& text : texts) {
        if (number.match(text).hasMatch())
            params.AddValue(norvik::Variant(text.toLongLong()));
        else
            params.AddValue(norvik::Variant(text));
    }
}

void DbCommand::Query(norvik::TnvDBConnection& conn, QStringList arguments, QTextStream& out) {
    const QString sql = sqlArgument(arguments);
    norvik::TnvParams params;
    BindParams(arguments, params);
    const auto query = conn.PSOpenQuery(sql, &params);
    out << query->FieldNames().join(QLatin1Char('\t')) << '\n';
    for (; !query->Eof(); query->Next()) {
        QStringList values;
        for (int i = 0; i < query->FieldCount(); ++i)
            values.append(fieldText(query->Fields(i)));
        out << values.join(QLatin1Char('\t')) << '\n';
    }
}

void DbCommand::Exec(norvik::TnvDBConnection& conn, QStringList arguments, QTextStream& out) {
    const QString sql = sqlArgument(arguments);
    norvik::TnvParams params;
    BindParams(arguments, params);
    out << conn.PSExecuteStatement(sql, &params) << '\n';
}

void DbCommand::GenID(norvik::TnvDBConnection& conn, const QStringList& arguments, QTextStream& out) {
    if (arguments.isEmpty() || arguments.size() > 2)
        throw ECliUsage(QStringLiteral("expects TABLE [COUNT]"));
    bool ok = true;
    const int count = arguments.size() == 2 ? arguments.at(1).toInt(&ok) : 1;
    if (!ok || count < 1)
        throw ECliUsage(QStringLiteral("COUNT must be a positive number"));
    out << conn.PSGenID(arguments.at(0), 0, count) << '\n';
}
