#pragma once

#include "TServerQueryMode.h"
#include "TestEnvironment.h"
#include "TnvDBConnection.h"
#include "TnvDBUpdate.h"

#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

namespace structuretest {

// A connection that claims another dialect, so that the statements of that dialect can be
// watched through OnRunSQL while a SQLite file stands behind it.
class DialectConnection : public norvik::TnvDBConnection {
public:
    explicit DialectConnection(norvik::TServerQueryMode AMode)
        : FMode(AMode) {}
    norvik::TServerQueryMode PSGetQueryMode() const override { return FMode; }

private:
    norvik::TServerQueryMode FMode;
};

// A SQLite file in a temporary folder and a connection to it.
class StructureTestDatabase {
public:
    explicit StructureTestDatabase(norvik::TServerQueryMode AMode = norvik::qsmSQLite);

    norvik::TnvDBConnection& Conn() { return *FConn; }
    QString FilePath() const { return FDir.filePath(QStringLiteral("test.s3db")); }
    void Exec(const QString& ASQL);
    qint64 Count(const QString& ASQL);
    // the text of one column of all rows, in the order of the statement
    QStringList Column(const QString& ASQL);

    // runs a check against the text and gives every statement it ran, in order; AHandled
    // keeps them from running
    QStringList Check(const QString& AStructure,
                      const std::function<void(norvik::TnvDBUpdate&)>& AConfigure = {},
                      bool AHandled = false);
    // the database's structure text of the tables the check would look at
    QString StructureText();

private:
    testsupport::TempDir FDir;
    std::unique_ptr<norvik::TnvDBConnection> FConn;
};

// the built-in target structure
QString BuiltInStructure();

} // namespace structuretest
