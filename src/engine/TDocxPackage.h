#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

namespace engine {

// The parts of an OpenXML package, read from its ZIP container at once, and the relationships
// between them.
class TDocxPackage {
public:
    struct TRelationship {
        QString type;
        // the target part's name inside the package, or an outside address
        QString target;
        bool external = false;
    };
    using TRelationships = QHash<QString, TRelationship>;

    // raises EDocumentError for anything that is no ZIP package
    explicit TDocxPackage(const QByteArray& zip);

    bool contains(const QString& partName) const { return m_parts.contains(partName); }
    QByteArray part(const QString& partName) const { return m_parts.value(partName); }
    // the relationships of a part ("" for the package's own), by id
    TRelationships relationships(const QString& partName) const;
    // the target of the first relationship of a part whose type ends with the given name
    QString targetOfType(const QString& partName, const QString& typeSuffix) const;

private:
    QHash<QString, QByteArray> m_parts;
};

} // namespace engine
