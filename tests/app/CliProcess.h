#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

// One run of a built program of this project, with what it printed and how it ended.
struct ProcessRun {
    int exitCode = -1;
    QByteArray out;
    QByteArray err;

    QString outText() const { return QString::fromUtf8(out); }
};

// Runs the program with the arguments, feeds input to its standard input and waits for its end.
ProcessRun runProgram(const QString& program, const QStringList& arguments, const QByteArray& input = {},
                      const QString& workingFolder = {});
