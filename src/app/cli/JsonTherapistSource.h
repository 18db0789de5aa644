#pragma once

#include "ITherapistSource.h"

#include <QList>
#include <QString>

// Therapist rows given as a JSON array of objects whose keys are the column names, in place
// of tblTherapeuten.
class JsonTherapistSource : public ITherapistSource {
public:
    // rows of the array; anything that is no object is passed over
    explicit JsonTherapistSource(const QString& AJSON);

    QList<norvik::InvNamedValuesPtr> AllTherapists() override { return FRows; }
    norvik::InvNamedValuesPtr TherapistByName(const QString& AName) override;

private:
    QList<norvik::InvNamedValuesPtr> FRows;
};
