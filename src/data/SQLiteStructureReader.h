#pragma once

#include <QString>
#include <QStringList>

namespace norvik {

class InvDBConnection;

// Reads the field and index lines of one SQLite table, in the form of the structure
// definition, from "PRAGMA table_info", "PRAGMA index_list" and "PRAGMA index_info".
class SQLiteStructureReader {
public:
    // "F:name;type;length;key;default;" per column, in the table's order
    static QStringList FieldLines(InvDBConnection& AConn, const QString& ATableName);
    // "I:name;kind;field;field..." per index, without the indexes SQLite makes by itself
    static QStringList IndexLines(InvDBConnection& AConn, const QString& ATableName);

    // the letter of a declared type name, or the name as it is if it stands for none
    static QString TypeLetter(const QString& ATypeName);
    // the length column: the declared length of texts, "1" for blobs and memos, else "0"
    static QString LengthColumn(const QString& ATypeName, int ADeclaredLength);
};

} // namespace norvik
