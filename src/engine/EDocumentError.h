#pragma once

#include <QString>
#include <stdexcept>

namespace engine {

// A document the engine can't read: no DOCX package, or a package without its main part.
class EDocumentError : public std::runtime_error {
public:
    explicit EDocumentError(const QString& message)
        : std::runtime_error(message.toStdString()) {}
    QString message() const { return QString::fromUtf8(what()); }
};

} // namespace engine
