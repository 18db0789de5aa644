#pragma once

#include "IInterface.h"
#include "InvNamedValues.h"

#include <QList>
#include <QString>

// Where the wizard gets the rows of tblTherapeuten from; each row is a named-value list
// with one entry per column (TPTID, TPTZusatzText1, TPTZusatzText2, TPTDaMeCode,
// TPTDaMeFachgebiet, ...).
class ITherapistSource : public norvik::IInterface {
public:
    // all therapists, ordered by TPTZusatzText1
    virtual QList<norvik::InvNamedValuesPtr> AllTherapists() = 0;
    // The row whose TPTZusatzText1 equals the name, or an empty list. The name goes into an
    // SQL string literal quoted: trailing zero characters cut, apostrophes doubled.
    virtual norvik::InvNamedValuesPtr TherapistByName(const QString& AName) = 0;
};
