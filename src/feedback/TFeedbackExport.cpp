#include "TFeedbackExport.h"

#include "TFeedbackWizardState.h"
#include "TSVNr.h"
#include "TZIPCityParts.h"

void TFeedbackExport::FillExport(TFeedbackWizardState& AState) {
    norvik::InvNamedValues& values = *AState.FExport;
    const norvik::InvNamedValues& therapist = *AState.FTPT;
    const TZIPCityParts location = TZIPCityParts::Split(AState.edtPATZIPCity);

    values.Clear();
    values.SetValueAsString(QStringLiteral("CFGDaMeOutbox"),
                            AState.FConfig->GetAsString(QStringLiteral("ExportFolder")));
    values.SetValueAsString(QStringLiteral("ADRDaMeCode"), AState.edtDOCMailbox);
    for (const QString& name : {QStringLiteral("TPTZusatzText1"), QStringLiteral("TPTZusatzText2"),
                                QStringLiteral("TPTDaMeFachgebiet"), QStringLiteral("TPTDaMeCode")})
        values.SetValueAsString(name, therapist.GetAsString(name));
    values.SetValueAsString(QStringLiteral("PATSVNr"), AState.edtPATSVNr);
    values.SetValueAsDateTime(QStringLiteral("PATGeburtstag"), TSVNr::BirthDateOf(AState.edtPATSVNr));
    values.SetValueAsString(QStringLiteral("PATNachname"), AState.edtPATLastname);
    values.SetValueAsString(QStringLiteral("PATVorname"), AState.edtPATFirstname);
    values.SetValueAsString(QStringLiteral("PATTitel"), AState.edtPATTitle1.Text());
    values.SetValueAsString(QStringLiteral("PATTitel2"), AState.edtPATTitle2.Text());
    values.SetValueAsString(QStringLiteral("PATPrivStrasse"), AState.edtPATStreet);
    values.SetValueAsString(QStringLiteral("PATPrivOrtsname"), location.City);
    values.SetValueAsString(QStringLiteral("PATPrivPLZ"), location.PostalCode);
}
