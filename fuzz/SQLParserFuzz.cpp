// Feeds arbitrary text, read as UTF-8, to the SQL rewriting and the statement splitter. Nothing
// may crash or hang, and a statement without a word to rewrite must come back unchanged.

#include "SQLSystem.h"
#include "TSQLObject.h"
#include "TnvSQLiteParser.h"

#include <QString>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

bool MayBeRewritten(const QString& sql) {
    for (const char* word : {"TOP", "ISNULL", "SUM"}) {
        if (sql.contains(QLatin1String(word), Qt::CaseInsensitive))
            return true;
    }
    return false;
}

void CheckParseSQL(const QString& sql) {
    QString result;
    const bool balanced = norvik::TnvSQLiteParser().ParseSQL(sql, result);
    if (balanced && !MayBeRewritten(sql) && result != sql) {
        std::fprintf(stderr, "in:  %s\nout: %s\n", sql.toUtf8().constData(), result.toUtf8().constData());
        std::abort();
    }
}

void CheckSQLObject(const QString& sql) {
    norvik::TSQLObject statement(sql);
    statement.Text();
    statement.From();
    for (int i = 0; i < statement.SourceQueryCount(); ++i)
        statement.GetSourceQuery(i);
    statement.ClearSourceQueries();
    statement.SetFormatOutput(true);
    statement.SetIndent(2);
    statement.Text();

    const QString condition = QStringLiteral("(XYZVisibleState=0)");
    const QString withCondition = norvik::AddWhere(sql, condition);
    if (!withCondition.contains(condition)) {
        std::fprintf(stderr, "in:  %s\nout: %s\n", sql.toUtf8().constData(),
                     withCondition.toUtf8().constData());
        std::abort();
    }
    norvik::FindSourceTable(sql);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QString sql = QString::fromUtf8(reinterpret_cast<const char*>(data), qsizetype(size));
    CheckParseSQL(sql);
    CheckSQLObject(sql);
    return 0;
}
