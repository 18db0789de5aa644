#pragma once

#include <QString>
#include <stdexcept>

namespace norvik {

// A text that cannot become the value asked for, or a format that does not fit its value.
class EConvertError : public std::runtime_error {
public:
    explicit EConvertError(const QString& message)
        : std::runtime_error(message.toStdString()) {}
    QString message() const { return QString::fromUtf8(what()); }
};

} // namespace norvik
