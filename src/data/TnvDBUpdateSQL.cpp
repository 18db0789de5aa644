#include "TnvDBUpdateSQL.h"

#include "DBExceptions.h"
#include "StructureText.h"

namespace norvik {

namespace {

struct FieldSpec {
    QChar letter;
    QString length;
    QString key;
    QString defaultValue;
    bool unicode = false;
};

FieldSpec ParseSpec(const QString& ASpec, const QString& ALength, const QString& AKey) {
    QString rest = ASpec;
    const QString type = StructureText::FetchColumn(rest).toUpper();
    FieldSpec spec;
    const QString length = StructureText::FetchColumn(rest);
    const QString key = StructureText::FetchColumn(rest);
    spec.length = ALength.isEmpty() ? length : ALength;
    spec.key = (AKey.isEmpty() ? key : AKey).toUpper();
    spec.defaultValue = StructureText::FetchColumn(rest);
    spec.unicode = StructureText::FetchColumn(rest).compare(QLatin1String("U"), Qt::CaseInsensitive) == 0;
    if (type.isEmpty() || !QStringLiteral("SIGDFCBM").contains(type.at(0)))
        throw EnvDBException(QStringLiteral("The field type \"%1\" could not be interpreted").arg(type));
    spec.letter = type.at(0);
    return spec;
}

// PostgreSQL keeps one character less of a 255-character text
QString TextLength(const FieldSpec& ASpec, TServerQueryMode AMode) {
    if (AMode == qsmPostGre && ASpec.length.trimmed() == QLatin1String("255"))
        return QStringLiteral("254");
    return ASpec.length;
}

QString NationalPrefix(const FieldSpec& ASpec, TServerQueryMode AMode) {
    return AMode == qsmMSSQL && ASpec.unicode ? QStringLiteral("N") : QString();
}

QString PlainType(const FieldSpec& ASpec, TServerQueryMode AMode) {
    switch (ASpec.letter.unicode()) {
    case u'S':
        return QStringLiteral(" ") + NationalPrefix(ASpec, AMode) + QStringLiteral("VARCHAR(") +
               TextLength(ASpec, AMode) + QStringLiteral(") COLLATE NOCASE ");
    case u'I':
        return QStringLiteral(" INT");
    case u'G':
        return QStringLiteral(" BIGINT");
    case u'D':
        return AMode == qsmPostGre ? QStringLiteral(" TIMESTAMP") : QStringLiteral(" DATETIME");
    case u'F':
        return QStringLiteral(" FLOAT");
    case u'C':
        return QStringLiteral(" MONEY");
    case u'B':
        if (AMode == qsmMySQL)
            return QStringLiteral(" BLOB");
        return AMode == qsmPostGre ? QStringLiteral(" OID") : QStringLiteral(" IMAGE");
    default:
        if (AMode == qsmMSAccess)
            return QStringLiteral(" MEMO");
        if (AMode == qsmSYBASE || AMode == qsmSQLANYWHERE)
            return QStringLiteral(" TEXT ");
        return QStringLiteral(" ") + NationalPrefix(ASpec, AMode) + QStringLiteral("TEXT COLLATE NOCASE ");
    }
}

bool KnowsKeyFields(TServerQueryMode AMode) {
    switch (AMode) {
    case qsmSQLite:
    case qsmMSAccess:
    case qsmMSSQL:
    case qsmSYBASE:
    case qsmSQLANYWHERE:
    case qsmMySQL:
    case qsmPostGre:
        return true;
    default:
        return false;
    }
}

QString KeyType(const FieldSpec& ASpec, TServerQueryMode AMode) {
    if (!KnowsKeyFields(AMode))
        throw EnvDBException(
            QStringLiteral("Database not involved \"%1\".").arg(TnvDBUpdateSQL::DialectName(AMode)));
    const bool serverTypes = AMode == qsmMSSQL || AMode == qsmSYBASE || AMode == qsmSQLANYWHERE;
    switch (ASpec.letter.unicode()) {
    case u'S':
        return QStringLiteral(" ") + NationalPrefix(ASpec, AMode) + QStringLiteral("VARCHAR(") +
               TextLength(ASpec, AMode) + QStringLiteral(") COLLATE NOCASE NOT NULL");
    case u'I':
        return QStringLiteral(" INT NOT NULL");
    case u'G':
        return QStringLiteral(" BIGINT NOT NULL");
    case u'D':
        return AMode == qsmPostGre ? QStringLiteral(" TIMESTAMP NOT NULL")
                                   : QStringLiteral(" DATETIME NOT NULL");
    case u'F':
        return QStringLiteral(" FLOAT NOT NULL");
    case u'C':
        return serverTypes ? QStringLiteral(" MONEY NOT NULL") : QStringLiteral(" FLOAT NOT NULL");
    case u'B':
        return serverTypes || AMode == qsmMSAccess ? QStringLiteral(" IMAGE NOT NULL")
                                                   : QStringLiteral(" BLOB NOT NULL");
    default:
        if (AMode == qsmMSAccess || AMode == qsmPostGre)
            return QStringLiteral(" MEMO NOT NULL");
        return QStringLiteral(" ") + NationalPrefix(ASpec, AMode) +
               QStringLiteral("TEXT COLLATE NOCASE NOT NULL");
    }
}

QString FieldList(const QString& AFields) {
    return QString(AFields).replace(u';', QStringLiteral(", "));
}

} // namespace

bool TnvDBUpdateSQL::IsKeySpec(const QString& ASpec) {
    QString rest = ASpec;
    StructureText::FetchColumn(rest);
    StructureText::FetchColumn(rest);
    return StructureText::FetchColumn(rest).toUpper() == QLatin1String("P");
}

QString TnvDBUpdateSQL::ColumnDefinition(const QString& ASpec, TServerQueryMode AMode, bool AWithDefault,
                                         const QString& ALength, const QString& AKey) {
    const FieldSpec spec = ParseSpec(ASpec, ALength, AKey);
    if (spec.key == QLatin1String("P"))
        return KeyType(spec, AMode);
    if (AWithDefault && !spec.defaultValue.isEmpty())
        return PlainType(spec, AMode) + QStringLiteral(" DEFAULT ") + spec.defaultValue;
    return PlainType(spec, AMode) + QStringLiteral(" NULL");
}

QString TnvDBUpdateSQL::CreateIndex(const QString& ATable, const QString& AName, const QString& AKind,
                                    const QString& AFields, TServerQueryMode AMode) {
    const QString kind = AKind.toUpper();
    const QString fields = FieldList(AFields);
    if (kind != QLatin1String("P")) {
        return QStringLiteral("CREATE ") +
               (kind == QLatin1String("U") ? QStringLiteral("UNIQUE ") : QString()) +
               QStringLiteral("INDEX ") + AName + QStringLiteral(" ON ") + ATable + u'(' + fields + u')';
    }
    switch (AMode) {
    case qsmMSAccess:
        return QStringLiteral("ALTER TABLE %1 ADD CONSTRAINT %2 PRIMARY KEY (%3)").arg(ATable, AName, fields);
    case qsmMSSQL:
        return QStringLiteral("ALTER TABLE %1 ADD CONSTRAINT %2 PRIMARY KEY CLUSTERED (%3) ON [PRIMARY]")
            .arg(ATable, AName, fields);
    case qsmSYBASE:
    case qsmSQLANYWHERE:
    case qsmMySQL:
        return QStringLiteral("CREATE UNIQUE INDEX %1 ON %2(%3)").arg(AName, ATable, fields);
    default:
        // SQLite and the rest: the key stands inline in the table
        return {};
    }
}

QString TnvDBUpdateSQL::DropIndex(const QString& ATable, const QString& AName, bool AIsKey,
                                  TServerQueryMode AMode) {
    switch (AMode) {
    case qsmMSAccess:
        return QStringLiteral("DROP INDEX %1 ON %2").arg(AName, ATable);
    case qsmMySQL:
        return AIsKey ? QString() : QStringLiteral("DROP INDEX %1 ON %2").arg(AName, ATable);
    case qsmMSSQL:
        return QStringLiteral("DROP INDEX %1.%2").arg(ATable, AName);
    default:
        return QStringLiteral("DROP INDEX ") + AName;
    }
}

QString TnvDBUpdateSQL::DialectName(TServerQueryMode AMode) {
    static const char* const Names[] = {
        "qsmStandard",       "qsmMSAccess", "qsmMSSQL",     "qsmINTERBASE", "qsmORACLE", "qsmSYBASE",
        "qsmSQLANYWHERE",    "qsmMySQL",    "qsmPostGre",   "qsmSQLite",    "qsmACE",    "qsmFoxPro",
        "qsmCenturaSQLBase", "qsmInformix", "qsmPERVASIVE", "qsmFireBird",
    };
    return QString::fromLatin1(Names[AMode]);
}

} // namespace norvik
