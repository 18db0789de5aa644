#include "SqlCommand.h"

#include "TnvSQLiteParser.h"

int SqlCommand::run(QStringList arguments, QTextStream& out, QTextStream& err) const {
    QString result;
    if (!norvik::TnvSQLiteParser().ParseSQL(onlyArgument(arguments), result)) {
        err << "sql: " << result << '\n';
        return CliFailure;
    }
    out << result << '\n';
    return CliSuccess;
}
