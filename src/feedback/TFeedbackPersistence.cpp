#include "TFeedbackPersistence.h"

#include "Clock.h"
#include "Exception.h"
#include "InsertUpdateRoutines.h"
#include "StringUtils.h"
#include "TFeedbackWizardState.h"
#include "TZIPCityParts.h"
#include "TnvRecordReader.h"

#include <QFile>

using norvik::InvNamedValuesPtr;
using norvik::Variant;

namespace {

const QString TherapistTable = QStringLiteral("tblTherapeuten");
const QString PatientTable = QStringLiteral("tblPatienten");
const QString AddressTable = QStringLiteral("tblAdressen");
const QString DocumentTable = QStringLiteral("tblDokumente");
const QString TherapistKey = QStringLiteral("TPTID");
const QString PatientKey = QStringLiteral("PATID");
const QString AddressKey = QStringLiteral("ADRID");
// the date of birth stands in the number behind the four digits of the serial
constexpr int BirthDatePosition = 4;
constexpr int BirthDateLength = 6;

Variant Text(const QString& AText) {
    return Variant(AText);
}

Variant Date(norvik::TDateTime ADate) {
    return Variant::fromDate(ADate);
}

// what the catalogue's flag reads as text: "True", "False", or nothing before a catalogue
QString FlagText(const Variant& AFlag) {
    return AFlag.isEmpty() ? QString() : AFlag.toString();
}

} // namespace

TFeedbackPersistence::TFeedbackPersistence(TFeedbackWizardState& AState, norvik::InvDBConnection& AConn)
    : FState(AState)
    , FConn(AConn) {}

QString TFeedbackPersistence::PatientSearchName(const TFeedbackWizardState& AState) {
    return QStringLiteral("%1 %2 (%3)")
        .arg(AState.edtPATLastname.trimmed(), AState.edtPATFirstname.trimmed(),
             AState.edtPATSVNr.mid(BirthDatePosition, BirthDateLength));
}

int TFeedbackPersistence::GenderCode(int AItemIndex) {
    switch (AItemIndex) {
    case 0:
        return 2;
    case 1:
        return 3;
    case 2:
        return 0;
    default:
        return 1;
    }
}

void TFeedbackPersistence::SaveTPTToDatabase() {
    const qint64 found = RowByText(TherapistTable, QStringLiteral("TPTZusatzText1"), FState.edtTHPTherapist)
                             ->GetAsIdentifier(TherapistKey);
    const qint64 id =
        InsertOrUpdate(TherapistTable, TherapistKey, found,
                       {QStringLiteral("TPTZusatzText1"), QStringLiteral("TPTZusatzText2"),
                        QStringLiteral("TPTDaMeFachgebiet"), QStringLiteral("TPTDaMeCode")},
                       {Text(FState.edtTHPTherapist), Text(FState.edtTHPTherapistExtension),
                        Text(FState.edtTHPTherapistField), Text(FState.edtTHPTherapistMailbox)});
    FState.FTPT = RowByID(TherapistTable, TherapistKey, id);
}

void TFeedbackPersistence::SaveAddressesToDatabase() {
    if (!FState.FStandaloneMode)
        return;
    SavePatient();
    SaveAddress();
}

void TFeedbackPersistence::SavePatient() {
    const QString searchName = PatientSearchName(FState);
    const TZIPCityParts location = TZIPCityParts::Split(FState.edtPATZIPCity);
    const qint64 found =
        RowByText(PatientTable, QStringLiteral("PATSuchname"), searchName)->GetAsIdentifier(PatientKey);
    const qint64 id = InsertOrUpdate(
        PatientTable, PatientKey, found,
        {QStringLiteral("PATNachname"), QStringLiteral("PATVorname"), QStringLiteral("PATSuchname"),
         QStringLiteral("PATPrivStrasse"), QStringLiteral("PATPrivLand"), QStringLiteral("PATPrivPLZ"),
         QStringLiteral("PATPrivOrtsname"), QStringLiteral("PATSVNR"), QStringLiteral("PATGeschlecht"),
         QStringLiteral("PATTitel"), QStringLiteral("PATTitelNachgestellt"),
         QStringLiteral("PATVersicherung")},
        {Text(FState.edtPATLastname), Text(FState.edtPATFirstname), Text(searchName),
         Text(FState.edtPATStreet), Text(location.Country), Text(location.PostalCode), Text(location.City),
         Text(FState.edtPATSVNr), Variant(GenderCode(FState.edtPATGender.ItemIndex())),
         Text(FState.edtPATTitle1.Text()), Text(FState.edtPATTitle2.Text()), Text(FState.edtPATAssurance)});
    FState.FPAT = RowByID(PatientTable, PatientKey, id);
}

void TFeedbackPersistence::SaveAddress() {
    const TZIPCityParts location = TZIPCityParts::Split(FState.edtDOCZIPCity);
    const QString searchName = FState.edtDOCName;
    const qint64 found =
        RowByText(AddressTable, QStringLiteral("ADRSuchname"), searchName)->GetAsIdentifier(AddressKey);
    const qint64 id = InsertOrUpdate(AddressTable, AddressKey, found,
                                     {QStringLiteral("ADRSuchname"), QStringLiteral("ADRAdressname"),
                                      QStringLiteral("ADRStrasse"), QStringLiteral("ADRLand"),
                                      QStringLiteral("ADRPLZ"), QStringLiteral("ADROrtsname"),
                                      QStringLiteral("ADRAnrede"), QStringLiteral("ADRDaMeCode")},
                                     {Text(searchName), Text(FState.edtDOCName), Text(FState.edtDOCStreet),
                                      Text(location.Country), Text(location.PostalCode), Text(location.City),
                                      Text(FState.edtDOCSalutation), Text(FState.edtDOCMailbox)});
    FState.FADR = RowByID(AddressTable, AddressKey, id);
}

void TFeedbackPersistence::SaveContentToDatabase(const QString& AFileName) {
    if (!FState.FStandaloneMode)
        return;
    // a document is never updated: each export is a row of its own
    norvik::InsertRecord(
        FConn, DocumentTable,
        {QStringLiteral("DOCDatum"), QStringLiteral("DOCThema"), QStringLiteral("DOCDiagName"),
         QStringLiteral("DOCDiagStart"), QStringLiteral("DOCDiagEnde"),
         QStringLiteral("DOCDiagTherapeutName"), QStringLiteral("DOCFragenkatalog"),
         QStringLiteral("DOCDokumentPDF"), PatientKey, AddressKey},
        {Date(norvik::Clock::todayDate()), Text(QStringLiteral("Rückmeldebogen")),
         Text(FState.edtTHPDiagnosis), Date(TFeedbackWizardState::DateValue(FState.edtTHPStart)),
         Date(TFeedbackWizardState::DateValue(FState.edtTHPEnd)), Text(FState.edtTHPTherapist),
         Text(FlagText(FState.FCatalogue.ActualQuestions())), Variant(FileBytes(AFileName)),
         Variant(FState.FPAT->GetAsIdentifier(PatientKey)),
         Variant(FState.FADR->GetAsIdentifier(AddressKey))});
}

qint64 TFeedbackPersistence::InsertOrUpdate(const QString& ATableName, const QString& AKeyField,
                                            qint64 AKeyValue, const QStringList& AFieldNames,
                                            const QList<Variant>& AValues) {
    if (AKeyValue == 0)
        return norvik::InsertRecord(FConn, ATableName, AFieldNames, AValues);
    norvik::UpdateRecord(FConn, ATableName, AKeyField, QString::number(AKeyValue), AFieldNames, AValues);
    return AKeyValue;
}

InvNamedValuesPtr TFeedbackPersistence::RowByText(const QString& ATableName, const QString& AColumn,
                                                  const QString& AText) {
    return norvik::TnvRecordReader::ReadRecord(FConn,
                                               QStringLiteral("SELECT * FROM %1 WHERE %2 = '%3'")
                                                   .arg(ATableName, AColumn, norvik::QuotedSQLText(AText)));
}

InvNamedValuesPtr TFeedbackPersistence::RowByID(const QString& ATableName, const QString& AKeyField,
                                                qint64 AID) {
    return norvik::TnvRecordReader::ReadRecord(
        FConn,
        QStringLiteral("SELECT * FROM %1 WHERE %2 = %3").arg(ATableName, AKeyField, QString::number(AID)));
}

QByteArray TFeedbackPersistence::FileBytes(const QString& AFileName) {
    QFile file(AFileName);
    if (!file.open(QIODevice::ReadOnly))
        throw norvik::Exception(QStringLiteral("Die Datei \"%1\" kann nicht gelesen werden.").arg(AFileName));
    return file.readAll();
}
