#include "TRepDBChangeBlock.h"

#include <QJsonArray>

namespace norvik {

namespace {

QJsonArray itemsToJson(const QList<TRepDataItem>& AItems) {
    QJsonArray result;
    for (const TRepDataItem& item : AItems) {
        QJsonObject entry;
        entry.insert(QStringLiteral("Name"), item.Name);
        if (item.Memory)
            entry.insert(QStringLiteral("Memory"), QString::fromLatin1(item.Memory->toBase64()));
        else
            entry.insert(QStringLiteral("Value"), item.Value);
        result.append(entry);
    }
    return result;
}

} // namespace

void TRepDBChangeBlock::WriteProperties(QJsonObject& AProperties) const {
    TRepCustomChangeBlock::WriteProperties(AProperties);
    AProperties.insert(QStringLiteral("Data"), itemsToJson(Data));
    AProperties.insert(QStringLiteral("UndoData"), itemsToJson(UndoData));
}

} // namespace norvik
