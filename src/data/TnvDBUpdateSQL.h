#pragma once

#include "TServerQueryMode.h"

#include <QString>

namespace norvik {

// The SQL that the structure update builds from the lines of the structure definition, for
// each dialect. SQLite is the dialect of this program; the others are built the same way.
class TnvDBUpdateSQL {
public:
    // The text behind the field name, beginning with a blank, from the part of a field line
    // behind the name. A non-empty ALength or AKey replaces the line's column. Raises
    // EnvDBException for an unknown type letter, and for a key field of a dialect that
    // knows no key fields.
    static QString ColumnDefinition(const QString& ASpec, TServerQueryMode AMode, bool AWithDefault = true,
                                    const QString& ALength = {}, const QString& AKey = {});

    // the statements for an index line's name, kind and fields ("a;b"); empty when the
    // dialect makes none, as SQLite for the primary key
    static QString CreateIndex(const QString& ATable, const QString& AName, const QString& AKind,
                               const QString& AFields, TServerQueryMode AMode);
    static QString DropIndex(const QString& ATable, const QString& AName, bool AIsKey,
                             TServerQueryMode AMode);

    // "qsmSQLite" and so on
    static QString DialectName(TServerQueryMode AMode);
    // the key mark of a field definition, upper-cased
    static bool IsKeySpec(const QString& ASpec);
};

} // namespace norvik
