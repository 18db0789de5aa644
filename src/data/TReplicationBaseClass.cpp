#include "TReplicationBaseClass.h"

#include <QJsonDocument>

namespace norvik {

QByteArray TReplicationBaseClass::SaveToStream() const {
    QJsonObject properties;
    WriteProperties(properties);
    QJsonObject record;
    record.insert(QStringLiteral("class"), ClassName());
    record.insert(QStringLiteral("properties"), properties);
    return QJsonDocument(record).toJson(QJsonDocument::Compact);
}

void TReplicationBaseClass::WriteProperties(QJsonObject& AProperties) const {
    AProperties.insert(QStringLiteral("Timestamp"), Timestamp);
    AProperties.insert(QStringLiteral("Params"), Params);
}

} // namespace norvik
