#pragma once

#include <QByteArray>
#include <QString>

namespace platform {

// The workstation's ANSI code page is Windows-1252: log files and the outbox message are
// written in it.
class AnsiCodePage {
public:
    static QByteArray encode(const QString& text);
    static QString decode(const QByteArray& bytes);
    // true when every character of text has a place in the code page
    static bool canEncode(const QString& text);
};

} // namespace platform
