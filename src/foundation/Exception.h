#pragma once

#include <QString>
#include <stdexcept>

namespace norvik {

// The general failure of the framework, for errors that have no class of their own.
class Exception : public std::runtime_error {
public:
    explicit Exception(const QString& message)
        : std::runtime_error(message.toStdString()) {}
    QString message() const { return QString::fromUtf8(what()); }
};

} // namespace norvik
