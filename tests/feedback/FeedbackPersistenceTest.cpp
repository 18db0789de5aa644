#include "Exception.h"
#include "FeedbackDatabaseTest.h"
#include "FixedClock.h"
#include "InsertUpdateRoutines.h"
#include "TDBTherapistSource.h"
#include "TDateTimeUtils.h"
#include "TFeedbackPersistence.h"
#include "TestEnvironment.h"

#include <gtest/gtest.h>

using norvik::Variant;

namespace {

const QString Patients = QStringLiteral("tblPatienten");
const QString Addresses = QStringLiteral("tblAdressen");
const QString Documents = QStringLiteral("tblDokumente");
const QString Therapists = QStringLiteral("tblTherapeuten");

class FeedbackPersistenceTest : public FeedbackDatabaseTest {
protected:
    TFeedbackPersistence persistence() { return TFeedbackPersistence(state, Conn()); }

    QString PatientText(const char* AColumn) { return state.FPAT->GetAsString(QString::fromLatin1(AColumn)); }
    QString AddressText(const char* AColumn) { return state.FADR->GetAsString(QString::fromLatin1(AColumn)); }

    void AddTherapist(const QString& AName, const QString& AMailbox) {
        norvik::InsertRecord(Conn(), Therapists,
                             {QStringLiteral("TPTZusatzText1"), QStringLiteral("TPTDaMeCode")},
                             {Variant(AName), Variant(AMailbox)});
    }
};

struct SearchNameCase {
    const char* Lastname;
    const char* Firstname;
    const char* SVNr;
    const char* Expected;
};

// names the case in test output
void PrintTo(const SearchNameCase& c, std::ostream* out) {
    *out << c.Lastname << '|' << c.Firstname << '|' << c.SVNr;
}

class PatientSearchNameTest : public testing::TestWithParam<SearchNameCase> {};

struct GenderCase {
    int ItemIndex;
    int Stored;
};

class GenderStorageTest : public FeedbackDatabaseTest, public testing::WithParamInterface<GenderCase> {};

struct LocationCase {
    const char* ZIPCity;
    const char* Country;
    const char* PostalCode;
    const char* City;
};

void PrintTo(const LocationCase& c, std::ostream* out) {
    *out << '"' << c.ZIPCity << '"';
}

class LocationStorageTest : public FeedbackDatabaseTest, public testing::WithParamInterface<LocationCase> {};

} // namespace

TEST_P(PatientSearchNameTest, IsLastnameFirstnameAndTheBirthDateOfTheNumber) {
    const SearchNameCase& c = GetParam();
    TFeedbackWizardState state;
    state.edtPATLastname = QString::fromUtf8(c.Lastname);
    state.edtPATFirstname = QString::fromUtf8(c.Firstname);
    state.edtPATSVNr = QString::fromUtf8(c.SVNr);
    EXPECT_EQ(TFeedbackPersistence::PatientSearchName(state), QString::fromUtf8(c.Expected));
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, PatientSearchNameTest,
    testing::Values(SearchNameCase{"Muster", "Eva", "1234150580", "Muster Eva (150580)"},
                    SearchNameCase{"  Muster ", " Eva  ", "1234150580", "Muster Eva (150580)"},
                    SearchNameCase{"Muster", "Eva", "123", "Muster Eva ()"},
                    SearchNameCase{"Muster", "Eva", "1234", "Muster Eva ()"},
                    SearchNameCase{"Muster", "Eva", "12345", "Muster Eva (5)"},
                    SearchNameCase{"Muster", "Eva", "123415058099", "Muster Eva (150580)"},
                    SearchNameCase{"Muster", "", "1234150580", "Muster  (150580)"}));

TEST_F(FeedbackPersistenceTest, TherapistIsInsertedAndThenUpdatedByItsName) {
    persistence().SaveTPTToDatabase();
    const qint64 id = state.FTPT->GetAsIdentifier(QStringLiteral("TPTID"));
    EXPECT_NE(id, 0);
    EXPECT_EQ(state.FTPT->GetAsString(QStringLiteral("TPTZusatzText2")), QStringLiteral("Physiotherapeutin"));
    EXPECT_EQ(state.FTPT->GetAsString(QStringLiteral("TPTDaMeFachgebiet")), QStringLiteral("63"));
    EXPECT_EQ(state.FTPT->GetAsString(QStringLiteral("TPTDaMeCode")), QStringLiteral("ABC"));

    state.edtTHPTherapistExtension = QStringLiteral("Physiotherapeutin MSc");
    state.edtTHPTherapistMailbox = QStringLiteral("ABD");
    persistence().SaveTPTToDatabase();
    EXPECT_EQ(Count(Therapists), 1);
    EXPECT_EQ(state.FTPT->GetAsIdentifier(QStringLiteral("TPTID")), id);
    EXPECT_EQ(state.FTPT->GetAsString(QStringLiteral("TPTZusatzText2")),
              QStringLiteral("Physiotherapeutin MSc"));
    EXPECT_EQ(state.FTPT->GetAsString(QStringLiteral("TPTDaMeCode")), QStringLiteral("ABD"));
}

TEST_F(FeedbackPersistenceTest, TherapistWithApostropheIsFoundAgain) {
    state.edtTHPTherapist = QStringLiteral("Sean O'Hara");
    persistence().SaveTPTToDatabase();
    persistence().SaveTPTToDatabase();
    EXPECT_EQ(Count(Therapists), 1);
    EXPECT_EQ(state.FTPT->GetAsString(QStringLiteral("TPTZusatzText1")), QStringLiteral("Sean O'Hara"));
}

TEST_F(FeedbackPersistenceTest, TherapistIsStoredOutsideStandaloneModeToo) {
    state.FStandaloneMode = false;
    persistence().SaveTPTToDatabase();
    persistence().SaveAddressesToDatabase();
    EXPECT_EQ(Count(Therapists), 1);
    EXPECT_EQ(Count(Patients), 0);
    EXPECT_EQ(Count(Addresses), 0);
    EXPECT_EQ(state.FPAT->Count(), 0);
    EXPECT_EQ(state.FADR->Count(), 0);
}

TEST_F(FeedbackPersistenceTest, PatientRowHoldsWhatTheWizardShows) {
    state.edtPATLastname = QStringLiteral(" Muster ");
    persistence().SaveAddressesToDatabase();
    EXPECT_NE(state.FPAT->GetAsIdentifier(QStringLiteral("PATID")), 0);
    EXPECT_EQ(PatientText("PATSuchname"), QStringLiteral("Muster Eva (150580)"));
    // the search name is trimmed, the columns keep the text as typed
    EXPECT_EQ(PatientText("PATNachname"), QStringLiteral(" Muster "));
    EXPECT_EQ(PatientText("PATVorname"), QStringLiteral("Eva"));
    EXPECT_EQ(PatientText("PATPrivStrasse"), QStringLiteral("Hauptstraße 1"));
    EXPECT_EQ(PatientText("PATPrivLand"), QStringLiteral("A"));
    EXPECT_EQ(PatientText("PATPrivPLZ"), QStringLiteral("1010"));
    EXPECT_EQ(PatientText("PATPrivOrtsname"), QStringLiteral("Wien"));
    EXPECT_EQ(PatientText("PATSVNR"), QStringLiteral("1234150580"));
    EXPECT_EQ(state.FPAT->GetAsInteger(QStringLiteral("PATGeschlecht")), 3);
    EXPECT_EQ(PatientText("PATTitel"), QStringLiteral("Mag."));
    EXPECT_EQ(PatientText("PATTitelNachgestellt"), QStringLiteral("MSc"));
    EXPECT_EQ(PatientText("PATVersicherung"), QStringLiteral("ÖGK"));
}

TEST_F(FeedbackPersistenceTest, SamePatientTwiceIsOneRowWithTheLaterValues) {
    persistence().SaveAddressesToDatabase();
    const qint64 id = state.FPAT->GetAsIdentifier(QStringLiteral("PATID"));
    // another person with the same names and birth date is taken for the same patient
    state.edtPATSVNr = QStringLiteral("9876150580");
    state.edtPATStreet = QStringLiteral("Ringstraße 5");
    state.edtPATTitle1.SetItemIndex(-1);
    persistence().SaveAddressesToDatabase();
    EXPECT_EQ(Count(Patients), 1);
    EXPECT_EQ(state.FPAT->GetAsIdentifier(QStringLiteral("PATID")), id);
    EXPECT_EQ(PatientText("PATSVNR"), QStringLiteral("9876150580"));
    EXPECT_EQ(PatientText("PATPrivStrasse"), QStringLiteral("Ringstraße 5"));
    EXPECT_EQ(PatientText("PATTitel"), QString());
}

TEST_F(FeedbackPersistenceTest, ChangedFirstNameGivesANewPatient) {
    persistence().SaveAddressesToDatabase();
    const qint64 first = state.FPAT->GetAsIdentifier(QStringLiteral("PATID"));
    state.edtPATFirstname = QStringLiteral("Eva Maria");
    persistence().SaveAddressesToDatabase();
    EXPECT_EQ(Count(Patients), 2);
    EXPECT_NE(state.FPAT->GetAsIdentifier(QStringLiteral("PATID")), first);
    EXPECT_EQ(PatientText("PATSuchname"), QStringLiteral("Muster Eva Maria (150580)"));
}

TEST_F(FeedbackPersistenceTest, ShortNumberGivesEmptyBrackets) {
    state.edtPATSVNr = QStringLiteral("123");
    persistence().SaveAddressesToDatabase();
    EXPECT_EQ(PatientText("PATSuchname"), QStringLiteral("Muster Eva ()"));
}

TEST_F(FeedbackPersistenceTest, PatientNameWithApostropheIsFoundAgain) {
    state.edtPATLastname = QStringLiteral("O'Neil");
    persistence().SaveAddressesToDatabase();
    persistence().SaveAddressesToDatabase();
    EXPECT_EQ(Count(Patients), 1);
    EXPECT_EQ(PatientText("PATSuchname"), QStringLiteral("O'Neil Eva (150580)"));
}

TEST_F(FeedbackPersistenceTest, PhysicianRowHoldsWhatTheWizardShows) {
    persistence().SaveAddressesToDatabase();
    EXPECT_NE(state.FADR->GetAsIdentifier(QStringLiteral("ADRID")), 0);
    EXPECT_EQ(AddressText("ADRSuchname"), QStringLiteral("Dr. Martina Steiner"));
    EXPECT_EQ(AddressText("ADRAdressname"), QStringLiteral("Dr. Martina Steiner"));
    EXPECT_EQ(AddressText("ADRStrasse"), QStringLiteral("Annenstraße 12"));
    EXPECT_EQ(AddressText("ADRLand"), QStringLiteral("A"));
    EXPECT_EQ(AddressText("ADRPLZ"), QStringLiteral("8020"));
    EXPECT_EQ(AddressText("ADROrtsname"), QStringLiteral("Graz"));
    EXPECT_EQ(AddressText("ADRAnrede"), QStringLiteral("Sehr geehrte Frau Doktor"));
    EXPECT_EQ(AddressText("ADRDaMeCode"), QStringLiteral("XYZ"));
}

TEST_F(FeedbackPersistenceTest, PhysicianIsUpdatedByNameAndRetypedNameIsANewAddress) {
    persistence().SaveAddressesToDatabase();
    const qint64 first = state.FADR->GetAsIdentifier(QStringLiteral("ADRID"));
    state.edtDOCMailbox = QStringLiteral("XYW");
    persistence().SaveAddressesToDatabase();
    EXPECT_EQ(Count(Addresses), 1);
    EXPECT_EQ(state.FADR->GetAsIdentifier(QStringLiteral("ADRID")), first);
    EXPECT_EQ(AddressText("ADRDaMeCode"), QStringLiteral("XYW"));

    state.edtDOCName = QStringLiteral("Dr. M. Steiner");
    persistence().SaveAddressesToDatabase();
    EXPECT_EQ(Count(Addresses), 2);
    EXPECT_NE(state.FADR->GetAsIdentifier(QStringLiteral("ADRID")), first);
}

TEST_P(GenderStorageTest, SelectionIsStoredAsItsCode) {
    state.edtPATGender.SetItemIndex(GetParam().ItemIndex);
    TFeedbackPersistence(state, Conn()).SaveAddressesToDatabase();
    EXPECT_EQ(state.FPAT->GetAsInteger(QStringLiteral("PATGeschlecht")), GetParam().Stored);
    EXPECT_EQ(TFeedbackPersistence::GenderCode(GetParam().ItemIndex), GetParam().Stored);
}

INSTANTIATE_TEST_SUITE_P(Items, GenderStorageTest,
                         testing::Values(GenderCase{0, 2}, GenderCase{1, 3}, GenderCase{2, 0},
                                         GenderCase{-1, 1}));

TEST_P(LocationStorageTest, LocationIsSplitIntoCountryPostalCodeAndCity) {
    const LocationCase& c = GetParam();
    state.edtDOCZIPCity = QString::fromUtf8(c.ZIPCity);
    state.edtPATZIPCity = QString::fromUtf8(c.ZIPCity);
    TFeedbackPersistence(state, Conn()).SaveAddressesToDatabase();
    const QStringList expected{QString::fromUtf8(c.Country), QString::fromUtf8(c.PostalCode),
                               QString::fromUtf8(c.City)};
    EXPECT_EQ((QStringList{state.FADR->GetAsString(QStringLiteral("ADRLand")),
                           state.FADR->GetAsString(QStringLiteral("ADRPLZ")),
                           state.FADR->GetAsString(QStringLiteral("ADROrtsname"))}),
              expected);
    EXPECT_EQ((QStringList{state.FPAT->GetAsString(QStringLiteral("PATPrivLand")),
                           state.FPAT->GetAsString(QStringLiteral("PATPrivPLZ")),
                           state.FPAT->GetAsString(QStringLiteral("PATPrivOrtsname"))}),
              expected);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, LocationStorageTest,
    testing::Values(LocationCase{"A-1010 Wien", "A", "1010", "Wien"},
                    LocationCase{"1010 Wien", "A", "1010", "Wien"}, LocationCase{"1010", "A", "1010", ""},
                    LocationCase{"", "", "", ""}, LocationCase{"D-80331 München", "D", "80331", "München"},
                    LocationCase{"5020 Salz-burg", "A", "5020", "Salz"},
                    LocationCase{"CH-8001 Zürich Altstadt", "CH", "8001", "Zürich Altstadt"}));

TEST_F(FeedbackPersistenceTest, DocumentRowHoldsTheFileAndTheFeedback) {
    testsupport::FixedClock clock("2026-03-03 14:05:00");
    testsupport::TempDir folder;
    const QByteArray bytes = QByteArray("UNA:+.? 'UNB+ANSI:1\r\n%PDF-1.4\n\0\x80\xff", 32);
    const QString file = folder.writeFile(QStringLiteral("{GUID}.pdf"), bytes);
    state.FCatalogue.CreateQuestions(QString());
    persistence().SaveTPTToDatabase();
    persistence().SaveAddressesToDatabase();
    persistence().SaveContentToDatabase(file);

    ASSERT_EQ(Count(Documents), 1);
    const auto row = Row(QStringLiteral("SELECT * FROM tblDokumente"));
    EXPECT_NE(row->GetAsIdentifier(QStringLiteral("DOCID")), 0);
    EXPECT_EQ(row->GetAsDateTime(QStringLiteral("DOCDatum")), norvik::TDateTimeUtils::EncodeDate(2026, 3, 3));
    EXPECT_EQ(row->GetAsString(QStringLiteral("DOCThema")), QStringLiteral("Rückmeldebogen"));
    EXPECT_EQ(row->GetAsString(QStringLiteral("DOCDiagName")), QStringLiteral("Gonarthrose"));
    EXPECT_EQ(row->GetAsDateTime(QStringLiteral("DOCDiagStart")),
              norvik::TDateTimeUtils::EncodeDate(2026, 2, 2));
    EXPECT_EQ(row->GetAsDateTime(QStringLiteral("DOCDiagEnde")),
              norvik::TDateTimeUtils::EncodeDate(2026, 2, 27));
    EXPECT_EQ(row->GetAsString(QStringLiteral("DOCDiagTherapeutName")), QStringLiteral("Anna Berger"));
    // only the flag whether the catalogue had its questions, not the catalogue
    EXPECT_EQ(row->GetAsString(QStringLiteral("DOCFragenkatalog")), QStringLiteral("True"));
    EXPECT_EQ(row->GetAsBytes(QStringLiteral("DOCDokumentPDF")), bytes);
    EXPECT_EQ(row->GetAsIdentifier(QStringLiteral("PATID")),
              state.FPAT->GetAsIdentifier(QStringLiteral("PATID")));
    EXPECT_EQ(row->GetAsIdentifier(QStringLiteral("ADRID")),
              state.FADR->GetAsIdentifier(QStringLiteral("ADRID")));
}

TEST_F(FeedbackPersistenceTest, EmptyDatesAreStoredAsZero) {
    testsupport::TempDir folder;
    const QString file = folder.writeFile(QStringLiteral("{GUID}.pdf"), "x");
    state.edtTHPStart = Variant::null();
    state.edtTHPEnd = Variant();
    persistence().SaveContentToDatabase(file);
    const auto row = Row(QStringLiteral("SELECT * FROM tblDokumente"));
    EXPECT_EQ(row->GetAsDateTime(QStringLiteral("DOCDiagStart")), 0.0);
    EXPECT_EQ(row->GetAsDateTime(QStringLiteral("DOCDiagEnde")), 0.0);
}

TEST_F(FeedbackPersistenceTest, TwoExportsGiveTwoDocumentsAndOnePatientAndAddress) {
    testsupport::TempDir folder;
    const QString file = folder.writeFile(QStringLiteral("{GUID}.pdf"), "x");
    for (int run = 0; run < 2; ++run) {
        persistence().SaveTPTToDatabase();
        persistence().SaveAddressesToDatabase();
        persistence().SaveContentToDatabase(file);
    }
    EXPECT_EQ(Count(Documents), 2);
    EXPECT_EQ(Count(Patients), 1);
    EXPECT_EQ(Count(Addresses), 1);
    EXPECT_EQ(Count(Therapists), 1);
}

TEST_F(FeedbackPersistenceTest, NoDocumentOutsideStandaloneMode) {
    testsupport::TempDir folder;
    state.FStandaloneMode = false;
    persistence().SaveContentToDatabase(folder.writeFile(QStringLiteral("{GUID}.pdf"), "x"));
    EXPECT_EQ(Count(Documents), 0);
}

TEST_F(FeedbackPersistenceTest, UnreadableFileRaisesAndStoresNoDocument) {
    testsupport::TempDir folder;
    EXPECT_THROW(persistence().SaveContentToDatabase(folder.filePath(QStringLiteral("fehlt.pdf"))),
                 norvik::Exception);
    EXPECT_EQ(Count(Documents), 0);
}

TEST_F(FeedbackPersistenceTest, TherapistSourceReadsTheTableOrderedByName) {
    AddTherapist(QStringLiteral("Zita Wagner"), QStringLiteral("Z1"));
    AddTherapist(QStringLiteral("Anna Berger"), QStringLiteral("A1"));
    AddTherapist(QStringLiteral("Sean O'Hara"), QStringLiteral("O1"));
    TDBTherapistSource source(Conn());
    QStringList names;
    for (const norvik::InvNamedValuesPtr& row : source.AllTherapists())
        names.append(row->GetAsString(QStringLiteral("TPTZusatzText1")));
    EXPECT_EQ(names, (QStringList{QStringLiteral("Anna Berger"), QStringLiteral("Sean O'Hara"),
                                  QStringLiteral("Zita Wagner")}));
    EXPECT_EQ(
        source.TherapistByName(QStringLiteral("Sean O'Hara"))->GetAsString(QStringLiteral("TPTDaMeCode")),
        QStringLiteral("O1"));
    EXPECT_EQ(source.TherapistByName(QStringLiteral("Niemand"))->GetAsIdentifier(QStringLiteral("TPTID")), 0);
    EXPECT_EQ(source.TherapistByName(QStringLiteral("Niemand"))->Count(), 0);
}

TEST_F(FeedbackPersistenceTest, TherapistSourceOfAnEmptyTableGivesNoRows) {
    EXPECT_TRUE(TDBTherapistSource(Conn()).AllTherapists().isEmpty());
}
