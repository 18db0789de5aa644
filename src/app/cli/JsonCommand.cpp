#include "JsonCommand.h"

#include "FileUtils.h"
#include "JSONWriter.h"
#include "VariantJSON.h"

#include <QFile>
#include <QStringDecoder>
#include <cstdio>

using namespace norvik;

namespace {

QString kindName(const Variant& value) {
    switch (value.valueType()) {
    case VarType::Unassigned:
        return QStringLiteral("unassigned");
    case VarType::Null:
        return QStringLiteral("null");
    case VarType::Boolean:
        return QStringLiteral("boolean");
    case VarType::Integer:
    case VarType::Int64:
        return QStringLiteral("integer");
    case VarType::Double:
    case VarType::Currency:
        return QStringLiteral("float");
    case VarType::String:
    case VarType::UString:
        return QStringLiteral("string");
    case VarType::JSON:
        break;
    default:
        return Variant::typeName(value.valueType()).toLower();
    }
    // a record whose kind was never decided is written as null
    switch (value.json()->VKind) {
    case jvObject:
        return QStringLiteral("object");
    case jvArray:
        return QStringLiteral("array");
    case jvUndefined:
        break;
    }
    return QStringLiteral("null");
}

bool readStandardInput(QString& text) {
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly))
        return false;
    QStringDecoder decoder(QStringDecoder::Utf8);
    text = decoder(input.readAll());
    return true;
}

} // namespace

int JsonCommand::run(QStringList arguments, QTextStream& out, QTextStream& err) const {
    const QString path = optionalArgument(arguments, QString());
    QString text;
    const bool read = arguments.isEmpty() ? readStandardInput(text) : TryReadUtf8File(path, text);
    if (!read) {
        err << "orvenna-cli: json: cannot read " << (path.isEmpty() ? QStringLiteral("standard input") : path)
            << '\n';
        return CliFailure;
    }
    const Variant value = JSONVariant(text);
    out << kindName(value) << '\n' << JSONWriter::valueText(value) << '\n';
    return CliSuccess;
}
