#pragma once

#include "Variant.h"

#include <QString>
#include <QStringList>
#include <exception>
#include <initializer_list>
#include <stdexcept>

namespace norvik {

// A debug file that cannot be opened or written.
class EDebugFileError : public std::runtime_error {
public:
    explicit EDebugFileError(const QString& message)
        : std::runtime_error(message.toStdString()) {}
    QString message() const { return QString::fromUtf8(what()); }
};

// The process-wide debug writer. A normal run writes nothing: lines go out only when the
// program is started with "/DEBUGLEVEL:", or when a caller asks for level 0.
//
// The state is read once, on first use, from the process arguments: "/DEBUGLEVEL:n" (n not a
// number counts as 1), "/DEBUGFILE:path", "/APPDEBUGFILE:path", the prefixes in any case.
// Files lie in the log folder unless a switch names another.

// Appends one line to the file: "dd.mm.yy hh:nn:ss " in front when withTimeStamp, CR LF
// behind when withLineEnd, written in the ANSI code page and closed at once. An empty file
// name means "Debug.txt" in the log folder. Safe from any thread; raises EDebugFileError
// when the file cannot be written.
void DebugToFile(const QString& text, const QString& fileName = {}, bool withTimeStamp = true,
                 bool withLineEnd = true);

// Writes text to the application debug file when level is at most the debug level.
// Level 8 is for tracing.
void DebugLog(int level, const QString& text);
// As above with the format expanded by FormatText, and only when the line is written; a
// format that does not fit its arguments writes "Exception: " and the format instead.
void DebugLog(int level, const QString& format, std::initializer_list<Variant> args);

// Appends the failed statement, the time and the error ("Class (message)"; empty when
// error is nullptr) to the SQL error file. Does nothing when that file name is empty.
void LogSQLError(const std::exception* error, const QString& statement);

int DebugLevel();
QString ProgramFolder();
QString DebugBaseName();
QString DebugFileName();
QString ExceptionsFileName();
QString AppDebugFileName();
QString DebugWorkingFolder();
QString SQLErrorFileName();

// Sets the whole debug state up again from these process arguments (the first being the
// program file), as happens on first use with the real ones.
void InitDebugState(const QStringList& arguments);

// The arguments the process was started with: those of the application object when it
// exists, otherwise the kernel's record of them.
QStringList ProcessArguments();

// Collapses doubled path separators; a leading "//" stays.
QString CleanDebugPath(const QString& path);

} // namespace norvik
