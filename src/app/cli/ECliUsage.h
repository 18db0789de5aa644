#pragma once

#include <QString>
#include <stdexcept>

// Raised by a subcommand whose arguments do not fit it.
class ECliUsage : public std::runtime_error {
public:
    explicit ECliUsage(const QString& message)
        : std::runtime_error(message.toStdString()) {}
    QString message() const { return QString::fromUtf8(what()); }
};
