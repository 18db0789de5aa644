#pragma once

#include "TReplicationBaseClass.h"

#include <QStringList>

namespace norvik {

// One recorded change: who made it when, where (Location, the table) and to what (Name, the
// key), and what was done (Action).
class TRepCustomChangeBlock : public TReplicationBaseClass {
public:
    TRepCustomChangeBlock() = default;
    TRepCustomChangeBlock(qint64 pUser, TDateTime pTimeStamp, const QString& pLocation, const QString& pName,
                          const QString& pAction);

    QString ClassName() const override { return QStringLiteral("TRepCustomChangeBlock"); }
    // conflicts between blocks are not judged: none is reported
    virtual bool HasConflict(const TRepCustomChangeBlock& pAnotherChangeBlock) const;
    virtual QString GroupName() const { return Location; }

    qint64 ChangeID = 0;
    qint64 ReplicationID = 0;
    qint64 User = 0;
    QString Location;
    QString Name;
    QString Action;
    int DestinationID = 0;
    bool WriteBack = false;
    bool InsertInToDB = false;
    QStringList AdditionalData;

protected:
    void WriteProperties(QJsonObject& AProperties) const override;
};

} // namespace norvik
