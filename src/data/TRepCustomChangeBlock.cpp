#include "TRepCustomChangeBlock.h"

#include <QJsonArray>

namespace norvik {

TRepCustomChangeBlock::TRepCustomChangeBlock(qint64 pUser, TDateTime pTimeStamp, const QString& pLocation,
                                             const QString& pName, const QString& pAction)
    : User(pUser)
    , Location(pLocation)
    , Name(pName)
    , Action(pAction) {
    Timestamp = pTimeStamp;
}

bool TRepCustomChangeBlock::HasConflict(const TRepCustomChangeBlock& pAnotherChangeBlock) const {
    Q_UNUSED(pAnotherChangeBlock)
    return false;
}

void TRepCustomChangeBlock::WriteProperties(QJsonObject& AProperties) const {
    TReplicationBaseClass::WriteProperties(AProperties);
    // 64-bit numbers as text, since JSON numbers lose digits beyond 53 bits
    AProperties.insert(QStringLiteral("ChangeID"), QString::number(ChangeID));
    AProperties.insert(QStringLiteral("ReplicationID"), QString::number(ReplicationID));
    AProperties.insert(QStringLiteral("User"), QString::number(User));
    AProperties.insert(QStringLiteral("Location"), Location);
    AProperties.insert(QStringLiteral("Name"), Name);
    AProperties.insert(QStringLiteral("Action"), Action);
    AProperties.insert(QStringLiteral("DestinationID"), DestinationID);
    AProperties.insert(QStringLiteral("WriteBack"), WriteBack);
    AProperties.insert(QStringLiteral("InsertInToDB"), InsertInToDB);
    AProperties.insert(QStringLiteral("AdditionalData"), QJsonArray::fromStringList(AdditionalData));
}

} // namespace norvik
