#pragma once

#include "CliCommand.h"

namespace norvik {
class TnvDBConnection;
}

// A settings block of sysConfig in a database file:
//   config get --db FILE --code CODE --user USER               "name=value" lines, sorted by name
//   config set --db FILE --code CODE --user USER NAME=VALUE...  loads the block, changes it, saves it
class ConfigCommand : public CliCommand {
public:
    QString name() const override { return QStringLiteral("config"); }
    QString synopsis() const override {
        return QStringLiteral("get|set --db FILE --code CODE --user USER [NAME=VALUE...]");
    }
    int run(QStringList arguments, QTextStream& out, QTextStream& err) const override;

private:
    static void Get(norvik::TnvDBConnection& conn, const QString& code, const QString& user,
                    QTextStream& out);
    static void Set(norvik::TnvDBConnection& conn, const QString& code, const QString& user,
                    const QStringList& assignments);
};
