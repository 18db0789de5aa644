#pragma once

#include "TRepCustomChangeBlock.h"

#include <QByteArray>
#include <QList>
#include <optional>

namespace norvik {

// One field of a database change: its value as plain text, or the bytes of a blob.
struct TRepDataItem {
    QString Name;
    QString Value;
    std::optional<QByteArray> Memory;
};

// A change of one table row. Action "I" insert, "U" update, "D" soft delete, "P" physical
// delete; Location is the table, Name the key value, Data one entry per written field.
class TRepDBChangeBlock : public TRepCustomChangeBlock {
public:
    using TRepCustomChangeBlock::TRepCustomChangeBlock;

    QString ClassName() const override { return QStringLiteral("TRepDBChangeBlock"); }

    QList<TRepDataItem> Data;
    QList<TRepDataItem> UndoData;

    void AddValue(const QString& AName, const QString& AValue) { Data.append({AName, AValue, std::nullopt}); }
    void AddMemory(const QString& AName, const QByteArray& AMemory) {
        Data.append({AName, QString(), AMemory});
    }

protected:
    void WriteProperties(QJsonObject& AProperties) const override;
};

} // namespace norvik
