#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>

namespace norvik {

using TDateTime = double;

// Base of everything that travels between replicating systems. A block streams itself as
// one self-describing record: its class name and its published properties.
class TReplicationBaseClass {
public:
    virtual ~TReplicationBaseClass() = default;

    virtual QString ClassName() const = 0;

    TDateTime Timestamp = 0;
    QString Params;

    // {"class": ClassName(), "properties": {...}} as UTF-8 JSON
    QByteArray SaveToStream() const;

protected:
    TReplicationBaseClass() = default;
    TReplicationBaseClass(const TReplicationBaseClass&) = default;
    TReplicationBaseClass& operator=(const TReplicationBaseClass&) = default;

    virtual void WriteProperties(QJsonObject& AProperties) const;
};

} // namespace norvik
