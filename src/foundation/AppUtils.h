#pragma once

#include "TParamTable.h"

#include <QString>
#include <QStringList>

namespace norvik {

// The command line as the application options C and DEVELOPING are read from: the same
// options as in CmdParams, but without the positional arguments.
TParamTable& AppParams();
// fills the table and sets DevelopingMode
void FillAppParams(const QStringList& arguments);

QString GetAppParam(const QString& name);
// true only for an option with a value: a bare switch does not count here
bool HasAppParam(const QString& name);

// The program's title, which message boxes carry; the option C replaces it. Empty until the
// program sets it.
QString ApplicationTitle();
void SetApplicationTitle(const QString& title);

// the switch DEVELOPING was given
extern bool DevelopingMode;

// the program's version as "major.minor.patch.build"
QString GetFileVersionText();
// "1.0.2.41" gives "0010002041": the number the updater compares versions by
QString VersionToNumberText(const QString& version);

// Creates the empty per-user folder "tarnwick". Nothing is ever stored in it; a failure is of
// no consequence and is passed over.
void CreateUserDataFolder();
QString UserDataFolder();

} // namespace norvik
