#include "SQLiteStructureReader.h"

#include "InvDBConnection.h"

#include <array>
#include <utility>

namespace norvik {

namespace {

struct TypeNameLetter {
    const char* name;
    const char* letter;
};

// "bigint" reads back as an integer: a 64-bit field always compares as changed
constexpr std::array<TypeNameLetter, 18> TypeLetters{{
    {"varchar", "S"},
    {"char", "S"},
    {"int", "I"},
    {"bigint", "I"},
    {"smallint", "I"},
    {"datetime", "D"},
    {"timestamp", "D"},
    {"date", "D"},
    {"time", "D"},
    {"float", "F"},
    {"double", "F"},
    {"numeric", "F"},
    {"money", "C"},
    {"image", "B"},
    {"long binary", "B"},
    {"varbinary", "B"},
    {"text", "M"},
    {"long varchar", "M"},
}};

bool SameTypeName(const QString& AName, const char* AKnown) {
    return QString::localeAwareCompare(AName.toLower(), QString::fromLatin1(AKnown)) == 0;
}

// a declared type "VARCHAR(80)" gives the name "VARCHAR" and the length 80
std::pair<QString, int> SplitDeclaredType(const QString& ADeclared) {
    const QString type = ADeclared.trimmed();
    const qsizetype open = type.indexOf(u'(');
    if (open < 0)
        return {type, 0};
    return {type.left(open), type.mid(open + 1, type.size() - open - 2).trimmed().toInt()};
}

QString FieldLine(TnvDataSet& ARow) {
    const auto [typeName, declaredLength] =
        SplitDeclaredType(ARow.FieldByName(QStringLiteral("type")).AsString());
    const bool key = ARow.FieldByName(QStringLiteral("pk")).AsInteger() == 1;
    QString defaultValue = ARow.FieldByName(QStringLiteral("dflt_value")).AsString();
    if (defaultValue.trimmed().isEmpty())
        defaultValue.clear();
    return QStringLiteral("F:") + ARow.FieldByName(QStringLiteral("name")).AsString() + u';' +
           SQLiteStructureReader::TypeLetter(typeName) + u';' +
           SQLiteStructureReader::LengthColumn(typeName, declaredLength) + u';' +
           (key ? QStringLiteral("P") : QString()) + u';' + defaultValue + u';';
}

QStringList PrimaryKeyFields(InvDBConnection& AConn, const QString& ATableName) {
    QStringList fields;
    AConn.PSForEachRecordEx(
        QStringLiteral("PRAGMA table_info(%s)"),
        [&fields](TnvDataSet& row) {
            if (row.FieldByName(QStringLiteral("pk")).AsInteger() == 1)
                fields.append(row.FieldByName(QStringLiteral("name")).AsString());
        },
        {ATableName}, false, false, true);
    return fields;
}

QString IndexColumns(InvDBConnection& AConn, const QString& AIndexName) {
    QString columns;
    AConn.PSForEachRecordEx(
        QStringLiteral("PRAGMA index_info(%s)"),
        [&columns](TnvDataSet& row) { columns += u';' + row.FieldByName(QStringLiteral("name")).AsString(); },
        {AIndexName}, false, false, true);
    return columns;
}

} // namespace

QString SQLiteStructureReader::TypeLetter(const QString& ATypeName) {
    for (const TypeNameLetter& entry : TypeLetters) {
        if (SameTypeName(ATypeName, entry.name))
            return QString::fromLatin1(entry.letter);
    }
    return ATypeName;
}

QString SQLiteStructureReader::LengthColumn(const QString& ATypeName, int ADeclaredLength) {
    for (const char* text : {"varchar", "char"}) {
        if (SameTypeName(ATypeName, text))
            return QString::number(ADeclaredLength);
    }
    for (const char* blob : {"long binary", "varbinary", "image", "text", "long varchar"}) {
        if (SameTypeName(ATypeName, blob))
            return QStringLiteral("1");
    }
    return QStringLiteral("0");
}

QStringList SQLiteStructureReader::FieldLines(InvDBConnection& AConn, const QString& ATableName) {
    QStringList lines;
    AConn.PSForEachRecordEx(
        QStringLiteral("PRAGMA table_info(%s)"), [&lines](TnvDataSet& row) { lines.append(FieldLine(row)); },
        {ATableName}, false, false, true);
    return lines;
}

QStringList SQLiteStructureReader::IndexLines(InvDBConnection& AConn, const QString& ATableName) {
    const QString keyFields = PrimaryKeyFields(AConn, ATableName).join(u';');
    QList<std::pair<QString, bool>> indexes;
    AConn.PSForEachRecordEx(
        QStringLiteral("PRAGMA index_list(%s)"),
        [&indexes](TnvDataSet& row) {
            indexes.append({row.FieldByName(QStringLiteral("name")).AsString(),
                            row.FieldByName(QStringLiteral("unique")).AsInteger() == 1});
        },
        {ATableName}, false, false, true);
    QStringList lines;
    for (const auto& [name, unique] : indexes) {
        // implied by an inline primary key; the definition never names them
        if (name.left(16).compare(QLatin1String("sqlite_autoindex"), Qt::CaseInsensitive) == 0)
            continue;
        const QString columns = IndexColumns(AConn, name);
        QString kind = unique ? QStringLiteral("U") : QString();
        if (unique && columns.mid(1) == keyFields)
            kind = QStringLiteral("P");
        lines.append(QStringLiteral("I:") + name + u';' + kind + columns);
    }
    return lines;
}

} // namespace norvik
