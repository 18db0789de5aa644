#pragma once

#include <QString>

namespace norvik {

// The SQL dialect of a connection. This program always works in qsmSQLite.
enum TServerQueryMode {
    qsmStandard,
    qsmMSAccess,
    qsmMSSQL,
    qsmINTERBASE,
    qsmORACLE,
    qsmSYBASE,
    qsmSQLANYWHERE,
    qsmMySQL,
    qsmPostGre,
    qsmSQLite,
    qsmACE,
    qsmFoxPro,
    qsmCenturaSQLBase,
    qsmInformix,
    qsmPERVASIVE,
    qsmFireBird,
};

// The dialect that a driver name stands for, compared without regard to case: "SQL Server"
// and its ODBC and FireDAC forms qsmMSSQL, "FD SQLITE" qsmSQLite, and so on; an unknown name
// is qsmStandard.
TServerQueryMode QueryModeFromDriverName(const QString& ADriverName);

} // namespace norvik
