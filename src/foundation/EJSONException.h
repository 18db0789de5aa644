#pragma once

#include <QString>
#include <stdexcept>

namespace norvik {

// Misuse of a JSON variant, such as adding a named value to an array.
class EJSONException : public std::runtime_error {
public:
    explicit EJSONException(const QString& message)
        : std::runtime_error(message.toStdString()) {}
    QString message() const { return QString::fromUtf8(what()); }
};

} // namespace norvik
