#include "FeedbackDatabaseTest.h"

#include "InvDBConnection.h"
#include "TDateTimeUtils.h"
#include "TnvRecordReader.h"

#include <QDir>

void FeedbackDatabaseTest::SetUp() {
    QDir(TmodData::DataFolder()).removeRecursively();
    FModule = std::make_unique<TmodData>();
    FConn = FModule->GetConnection();
    ASSERT_NE(FConn, nullptr);
    FillCompleteFeedback(state);
}

void FeedbackDatabaseTest::TearDown() {
    FModule.reset();
    QDir(TmodData::DataFolder()).removeRecursively();
}

qint64 FeedbackDatabaseTest::Count(const QString& ATableName) {
    return FConn->PSQueryValue(QStringLiteral("SELECT COUNT(*) FROM %1").arg(ATableName), norvik::Variant(0))
        .toInt64();
}

norvik::InvNamedValuesPtr FeedbackDatabaseTest::Row(const QString& ASQL) {
    return norvik::TnvRecordReader::ReadRecord(*FConn, ASQL);
}

void FeedbackDatabaseTest::FillCompleteFeedback(TFeedbackWizardState& AState) {
    AState.edtPATLastname = QStringLiteral("Muster");
    AState.edtPATFirstname = QStringLiteral("Eva");
    AState.edtPATStreet = QStringLiteral("Hauptstraße 1");
    AState.edtPATZIPCity = QStringLiteral("A-1010 Wien");
    AState.edtPATGender.SetItemIndex(1);
    AState.edtPATTitle1.SetText(QStringLiteral("Mag."));
    AState.edtPATTitle2.SetText(QStringLiteral("MSc"));
    AState.edtPATSVNr = QStringLiteral("1234150580");
    AState.edtPATAssurance = QStringLiteral("ÖGK");
    AState.edtDOCName = QStringLiteral("Dr. Martina Steiner");
    AState.edtDOCStreet = QStringLiteral("Annenstraße 12");
    AState.edtDOCZIPCity = QStringLiteral("8020 Graz");
    AState.edtDOCMailbox = QStringLiteral("XYZ");
    AState.edtDOCSalutation = QStringLiteral("Sehr geehrte Frau Doktor");
    AState.edtTHPDiagnosis = QStringLiteral("Gonarthrose");
    AState.edtTHPStart = norvik::Variant::fromDate(norvik::TDateTimeUtils::EncodeDate(2026, 2, 2));
    AState.edtTHPEnd = norvik::Variant::fromDate(norvik::TDateTimeUtils::EncodeDate(2026, 2, 27));
    AState.edtTHPTherapist = QStringLiteral("Anna Berger");
    AState.edtTHPTherapistExtension = QStringLiteral("Physiotherapeutin");
    AState.edtTHPTherapistField = QStringLiteral("63");
    AState.edtTHPTherapistMailbox = QStringLiteral("ABC");
}

void PrintTo(const QString& AText, std::ostream* AOut) {
    *AOut << '"' << AText.toStdString() << '"';
}
