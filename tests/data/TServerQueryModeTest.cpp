#include "TServerQueryMode.h"

#include <gtest/gtest.h>
#include <ostream>

using namespace norvik;

namespace {

struct DriverCase {
    const char* driver;
    TServerQueryMode mode;
};

// names the case in test output
void PrintTo(const DriverCase& c, std::ostream* os) {
    *os << c.driver;
}

class QueryModeFromDriverNameTest : public ::testing::TestWithParam<DriverCase> {};

TEST_P(QueryModeFromDriverNameTest, NamesTheDialect) {
    EXPECT_EQ(QueryModeFromDriverName(QString::fromLatin1(GetParam().driver)), GetParam().mode);
}

INSTANTIATE_TEST_SUITE_P(
    Drivers, QueryModeFromDriverNameTest,
    ::testing::Values(DriverCase{"SQL Server", qsmMSSQL}, DriverCase{"sqlserver odbc", qsmMSSQL},
                      DriverCase{"FD SQL Server", qsmMSSQL}, DriverCase{"fd sqlite", qsmSQLite},
                      DriverCase{"ASA ODBC", qsmSQLANYWHERE}, DriverCase{"VFSSQL", qsmSQLANYWHERE},
                      DriverCase{"FOXPRO ODBC", qsmFoxPro}, DriverCase{"ACCESS ODBC", qsmMSAccess},
                      DriverCase{"Centura SQLBase ODBC", qsmCenturaSQLBase},
                      DriverCase{"IBM INFORMIX ODBC DRIVER", qsmInformix},
                      DriverCase{"FD FIREBIRD", qsmFireBird}, DriverCase{"PERVASIVE ODBC", qsmPERVASIVE},
                      DriverCase{"SQLite", qsmStandard}, DriverCase{"", qsmStandard}));

} // namespace
