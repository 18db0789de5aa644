#pragma once

#include "ITherapistSource.h"

namespace norvik {
class InvDBConnection;
}

// The therapists as tblTherapeuten holds them. Each call reads the table anew, so rows stored
// in between are seen.
class TDBTherapistSource : public ITherapistSource {
public:
    explicit TDBTherapistSource(norvik::InvDBConnection& AConn);

    QList<norvik::InvNamedValuesPtr> AllTherapists() override;
    norvik::InvNamedValuesPtr TherapistByName(const QString& AName) override;

private:
    norvik::InvDBConnection& FConn;
};
