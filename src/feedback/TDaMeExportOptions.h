#pragma once

#include <QString>
#include <optional>

// How the program was started decides what happens to the finished outbox file besides
// standing in the outbox: stored as a document, copied for the calling program, or handed to
// it on standard output.
struct TDaMeExportOptions {
    // the option rc has the value "1": the file goes to standard output and is not stored
    bool ReturnToCaller = false;
    // the option rf: the file is copied there and not stored; a bare rf counts as given too
    std::optional<QString> ResultCopyPath;
    // there is a console to write the file to
    bool ConsoleAllocated = false;

    static TDaMeExportOptions FromCommandLine();
};
