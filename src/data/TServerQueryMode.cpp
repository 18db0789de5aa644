#include "TServerQueryMode.h"

#include <utility>

namespace norvik {

TServerQueryMode QueryModeFromDriverName(const QString& ADriverName) {
    static const std::pair<const char*, TServerQueryMode> modes[] = {
        {"SQL Server", qsmMSSQL},
        {"SQLServer", qsmMSSQL},
        {"SQLSERVER ODBC", qsmMSSQL},
        {"FD SQL Server", qsmMSSQL},
        {"ASA ODBC", qsmSQLANYWHERE},
        {"VFSSQL", qsmSQLANYWHERE},
        {"FOXPRO ODBC", qsmFoxPro},
        {"ACCESS ODBC", qsmMSAccess},
        {"Centura SQLBase ODBC", qsmCenturaSQLBase},
        {"IBM INFORMIX ODBC DRIVER", qsmInformix},
        {"FD SQLITE", qsmSQLite},
        {"FD FIREBIRD", qsmFireBird},
        {"PERVASIVE ODBC", qsmPERVASIVE},
    };
    for (const auto& [name, mode] : modes) {
        if (ADriverName.compare(QLatin1String(name), Qt::CaseInsensitive) == 0)
            return mode;
    }
    return qsmStandard;
}

} // namespace norvik
