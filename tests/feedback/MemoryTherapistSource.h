#pragma once

#include "ITherapistSource.h"
#include "TnvNamedValues.h"

#include <QStringList>

// Therapist rows held in memory, in the order they are given; it notes every name looked up.
class MemoryTherapistSource : public ITherapistSource {
public:
    // a row of tblTherapeuten with name, job title, field and mailbox
    void AddTherapist(qint64 AID, const QString& AName, const QString& AExtension, const QString& AField,
                      const QString& AMailbox) {
        auto row = norvik::TnvNamedValues::Create();
        row->SetValueAsIdentifier(QStringLiteral("TPTID"), AID);
        row->SetValueAsString(QStringLiteral("TPTZusatzText1"), AName);
        row->SetValueAsString(QStringLiteral("TPTZusatzText2"), AExtension);
        row->SetValueAsString(QStringLiteral("TPTDaMeFachgebiet"), AField);
        row->SetValueAsString(QStringLiteral("TPTDaMeCode"), AMailbox);
        FRows.append(row);
    }

    QList<norvik::InvNamedValuesPtr> AllTherapists() override { return FRows; }

    norvik::InvNamedValuesPtr TherapistByName(const QString& AName) override {
        FLookedUp.append(AName);
        for (const norvik::InvNamedValuesPtr& row : FRows) {
            if (row->GetAsString(QStringLiteral("TPTZusatzText1")) == AName)
                return row;
        }
        return norvik::TnvNamedValues::Create();
    }

    const QStringList& LookedUp() const { return FLookedUp; }

private:
    QList<norvik::InvNamedValuesPtr> FRows;
    QStringList FLookedUp;
};
