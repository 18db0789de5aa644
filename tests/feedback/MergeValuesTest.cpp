#include "FixedClock.h"
#include "MemoryTherapistSource.h"
#include "TDateTimeUtils.h"
#include "TFeedbackMergeValues.h"
#include "TFeedbackWizardState.h"
#include "TestEnvironment.h"

#include <gtest/gtest.h>
#include <ostream>

using norvik::Variant;

static void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

namespace {

const QString Catalogue = QStringLiteral(R"({"questions":[
    {"name":"q01","description":"Ergebnis","subcategories":[
        {"name":"q01.1","description":"Schmerz","items":[{"code":"01","caption":"gleich"},{"code":"02","caption":"besser"}]},
        {"name":"q01.2","description":"Kraft","items":[{"code":"01","caption":"gleich"},{"code":"AB","caption":"mehr"}]}]},
    {"name":"q02","description":"Compliance","items":[{"code":"01","caption":"gut"},{"code":"02","caption":"erste"},
        {"code":"02","caption":"zweite"},{"caption":"ohne Code"}]},
    {"name":"dup","description":"A","items":[{"code":"01","caption":"a1"}]},
    {"name":"DUP","description":"B","items":[{"code":"01","caption":"b1"},{"code":"02","caption":"b2"}]}]})");

class MergeValuesTest : public testing::Test {
protected:
    testsupport::FixedClock clock{"2026-03-03 14:05:00"};
    MemoryTherapistSource source;
    TFeedbackWizardState state;

    void SetUp() override {
        source.AddTherapist(11, QStringLiteral("Anna Berger"), QStringLiteral("Physiotherapeutin"),
                            QStringLiteral("PHY"), QStringLiteral("ME111"));
        source.AddTherapist(12, QStringLiteral("O'Hara"), QStringLiteral("Ergotherapeut"),
                            QStringLiteral("ERG"), QStringLiteral("ME222"));
        state.LoadConfig(source, nullptr);
        state.FCatalogue.CreateQuestions(Catalogue);
    }

    void Prepare(const QString& AValues) { TFeedbackMergeValues::PrepareValues(state, AValues, source); }

    // the answer box of the n-th entry of that name that has one
    const TAnswerBox& Box(const QString& AQuestionName, int AOccurrence = 0) {
        for (const TContentInfo& info : state.FCatalogue.Content()) {
            if (info.Combo >= 0 && info.QuestionName == AQuestionName && AOccurrence-- == 0)
                return state.FCatalogue.Boxes().at(info.Combo);
        }
        static const TAnswerBox none;
        ADD_FAILURE() << "no box " << AQuestionName.toStdString();
        return none;
    }

    QString Therapist() const {
        return QStringList{state.edtTHPTherapist, state.edtTHPTherapistExtension, state.edtTHPTherapistField,
                           state.edtTHPTherapistMailbox}
            .join(u'|');
    }

    QString Merged(const char* AName) const { return state.FValues->GetAsString(QString::fromLatin1(AName)); }
};

} // namespace

TEST_F(MergeValuesTest, NoContentShowsTheFirstTherapist) {
    Prepare(QString());
    EXPECT_EQ(Therapist(), QStringLiteral("Anna Berger|Physiotherapeutin|PHY|ME111"));
    EXPECT_EQ(state.FTPT->GetAsIdentifier(QStringLiteral("TPTID")), 11);
    EXPECT_EQ(state.edtPATLastname, QString());
}

TEST_F(MergeValuesTest, PathThatDoesNotExistIsReadAsJsonTextWithoutEffect) {
    Prepare(testsupport::sandboxPath() + QStringLiteral("/fehlt/content.json"));
    EXPECT_EQ(Therapist(), QStringLiteral("Anna Berger|Physiotherapeutin|PHY|ME111"));
    EXPECT_EQ(state.FTPT->GetAsIdentifier(QStringLiteral("TPTID")), 11);
}

TEST_F(MergeValuesTest, WithoutTherapistsTheEditsStayEmpty) {
    MemoryTherapistSource empty;
    state.LoadConfig(empty, nullptr);
    TFeedbackMergeValues::PrepareValues(state, QString(), empty);
    EXPECT_EQ(Therapist(), QStringLiteral("|||"));
    EXPECT_EQ(state.FTPT->Count(), 0);
}

TEST_F(MergeValuesTest, ContentFileFillsTheControls) {
    testsupport::TempDir dir;
    const QString file =
        dir.writeFile(QStringLiteral("content.json"), QByteArrayLiteral("\xef\xbb\xbf") + QStringLiteral(R"({
        "patient": {"lastname": "Muster", "firstname": "Eva", "street": "Hauptstraße 1", "zipcity": "1010 Wien",
                    "gender": "female", "title": "Dr.", "title2": "MSc", "assurance": "ÖGK", "ssnr": "1237010180"},
        "referrer": {"mailbox": "ME999", "name": "Dr. Huber", "salutation": "Sehr geehrter Herr Dr. Huber",
                     "street": "Ring 2", "zipcity": "A-8010 Graz"},
        "referral": {"diagnosis": "Lumbalgie", "start": "2026-02-02", "end": "27.02.2026"}})")
                                                                                              .toUtf8());
    Prepare(file);
    EXPECT_EQ(state.edtPATLastname, QStringLiteral("Muster"));
    EXPECT_EQ(state.edtPATFirstname, QStringLiteral("Eva"));
    EXPECT_EQ(state.edtPATStreet, QStringLiteral("Hauptstraße 1"));
    EXPECT_EQ(state.edtPATZIPCity, QStringLiteral("1010 Wien"));
    EXPECT_EQ(state.edtPATGender.ItemIndex(), 1);
    EXPECT_EQ(state.edtPATGender.Text(), QStringLiteral("Weiblich"));
    EXPECT_EQ(state.edtPATTitle1.Text(), QStringLiteral("Dr."));
    EXPECT_EQ(state.edtPATTitle1.ItemIndex(), 0);
    EXPECT_EQ(state.edtPATTitle2.Text(), QStringLiteral("MSc"));
    EXPECT_EQ(state.edtPATTitle2.ItemIndex(), -1);
    EXPECT_EQ(state.edtPATAssurance, QStringLiteral("ÖGK"));
    EXPECT_EQ(state.edtPATSVNr, QStringLiteral("1237010180"));
    EXPECT_EQ(state.edtDOCMailbox, QStringLiteral("ME999"));
    EXPECT_EQ(state.edtDOCName, QStringLiteral("Dr. Huber"));
    EXPECT_EQ(state.edtDOCSalutation, QStringLiteral("Sehr geehrter Herr Dr. Huber"));
    EXPECT_EQ(state.edtDOCStreet, QStringLiteral("Ring 2"));
    EXPECT_EQ(state.edtDOCZIPCity, QStringLiteral("A-8010 Graz"));
    EXPECT_EQ(state.edtTHPDiagnosis, QStringLiteral("Lumbalgie"));
    EXPECT_EQ(state.DisplayText(QStringLiteral("edtTHPStart")), QStringLiteral("02.02.2026"));
    EXPECT_EQ(state.DisplayText(QStringLiteral("edtTHPEnd")), QStringLiteral("27.02.2026"));
    // no therapist in the referral: the first one of the table is filled in
    EXPECT_EQ(Therapist(), QStringLiteral("Anna Berger|Physiotherapeutin|PHY|ME111"));
}

TEST_F(MergeValuesTest, PatientObjectEmptiesTheControlsItDoesNotName) {
    state.edtPATLastname = QStringLiteral("alt");
    state.edtPATTitle1.SetText(QStringLiteral("Mag."));
    state.edtPATSVNr = QStringLiteral("1237010180");
    Prepare(QStringLiteral(R"({"patient":{"gender":"FEMALE"}})"));
    EXPECT_EQ(state.edtPATGender.ItemIndex(), 1);
    EXPECT_EQ(state.edtPATLastname, QString());
    EXPECT_EQ(state.edtPATTitle1.Text(), QString());
    EXPECT_EQ(state.edtPATTitle1.ItemIndex(), -1);
    EXPECT_EQ(state.edtPATSVNr, QString());
}

TEST_F(MergeValuesTest, AbsentObjectLeavesItsControlsAlone) {
    state.edtDOCName = QStringLiteral("bleibt");
    Prepare(QStringLiteral(R"({"patient":{"lastname":"Muster"}})"));
    EXPECT_EQ(state.edtDOCName, QStringLiteral("bleibt"));
}

namespace {

struct GenderCase {
    const char16_t* gender;
    int itemIndex;
};

class GenderTest : public MergeValuesTest, public testing::WithParamInterface<GenderCase> {};

} // namespace

TEST_P(GenderTest, GenderWordSelectsItsItemInAnyLetterCase) {
    state.edtPATGender.SetItemIndex(2);
    Prepare(QStringLiteral(R"({"patient":{"gender":"%1"}})").arg(QString::fromUtf16(GetParam().gender)));
    EXPECT_EQ(state.edtPATGender.ItemIndex(), GetParam().itemIndex);
}

INSTANTIATE_TEST_SUITE_P(Genders, GenderTest,
                         testing::Values(GenderCase{u"male", 0}, GenderCase{u"Male", 0},
                                         GenderCase{u"female", 1}, GenderCase{u"FEMALE", 1},
                                         GenderCase{u"undefined", 2}, GenderCase{u"UnDefined", 2},
                                         GenderCase{u"diverse", -1}, GenderCase{u"", -1},
                                         GenderCase{u"männlich", -1}));

TEST_F(MergeValuesTest, KeysAreComparedExactly) {
    Prepare(QStringLiteral(R"({"Patient":{"lastname":"A"},"referrer":{"Name":"B","name":"C"}})"));
    EXPECT_EQ(state.edtPATLastname, QString());
    EXPECT_EQ(state.edtDOCName, QStringLiteral("C"));
}

TEST_F(MergeValuesTest, NumbersAndNullInTheContentBecomeText) {
    Prepare(QStringLiteral(R"({"patient":{"ssnr":1237010180,"lastname":null,"street":true}})"));
    EXPECT_EQ(state.edtPATSVNr, QStringLiteral("1237010180"));
    EXPECT_EQ(state.edtPATLastname, QString());
    EXPECT_EQ(state.edtPATStreet, QStringLiteral("True"));
}

TEST_F(MergeValuesTest, ContentThatIsNoObjectHasNoEffect) {
    for (const QString& content :
         {QStringLiteral("[1,2]"), QStringLiteral("12"), QStringLiteral(R"({"patient":"x"})"),
          QStringLiteral(R"({"patient":[1]})")}) {
        state.edtPATLastname = QStringLiteral("bleibt");
        Prepare(content);
        EXPECT_EQ(state.edtPATLastname, QStringLiteral("bleibt")) << content.toStdString();
        EXPECT_EQ(Therapist(), QStringLiteral("Anna Berger|Physiotherapeutin|PHY|ME111"));
    }
}

TEST_F(MergeValuesTest, BrokenContentAppliesWhatWasReadBeforeTheError) {
    Prepare(QStringLiteral(R"({"patient":{"lastname":"Muster"},"referrer":{"name":)"));
    EXPECT_EQ(state.edtPATLastname, QStringLiteral("Muster"));
}

TEST_F(MergeValuesTest, ReferralTherapistIsLookedUpByName) {
    Prepare(QStringLiteral(R"({"referral":{"therapist":"O'Hara","therapistmailbox":"ME-X"}})"));
    EXPECT_EQ(source.LookedUp(), QStringList{QStringLiteral("O'Hara")});
    EXPECT_EQ(state.FTPT->GetAsIdentifier(QStringLiteral("TPTID")), 12);
    // the edits keep what the content says, missing keys included
    EXPECT_EQ(Therapist(), QStringLiteral("O'Hara|||ME-X"));
}

TEST_F(MergeValuesTest, UnknownTherapistKeepsItsTextAndLeavesNoActiveTherapist) {
    Prepare(QStringLiteral(R"({"referral":{"therapist":"Neu","therapistfield":"PHY"}})"));
    EXPECT_EQ(Therapist(), QStringLiteral("Neu||PHY|"));
    EXPECT_EQ(state.FTPT->Count(), 0);
}

TEST_F(MergeValuesTest, ReferralWithoutTherapistFillsTheFirstTherapist) {
    Prepare(QStringLiteral(R"({"referral":{"diagnosis":"x","therapistextension":"wird ersetzt"}})"));
    EXPECT_TRUE(source.LookedUp().isEmpty());
    EXPECT_EQ(Therapist(), QStringLiteral("Anna Berger|Physiotherapeutin|PHY|ME111"));
}

namespace {

struct DateCase {
    const char16_t* text;
    const char16_t* shown;
};

class DateConversionTest : public MergeValuesTest, public testing::WithParamInterface<DateCase> {};

} // namespace

TEST_P(DateConversionTest, StartIsReadAsIsoOrTypedDate) {
    Prepare(QStringLiteral(R"({"referral":{"start":"%1"}})").arg(QString::fromUtf16(GetParam().text)));
    EXPECT_EQ(state.DisplayText(QStringLiteral("edtTHPStart")), QString::fromUtf16(GetParam().shown));
    EXPECT_EQ(state.edtTHPStart.isNull(), QString::fromUtf16(GetParam().shown).isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Dates, DateConversionTest,
    testing::Values(DateCase{u"2026-03-18", u"18.03.2026"}, DateCase{u"20260318", u"18.03.2026"},
                    DateCase{u"18.03.2026", u"18.03.2026"}, DateCase{u"3.1.26", u"03.01.2026"},
                    DateCase{u"heute", u"03.03.2026"}, DateCase{u"Heute", u"03.03.2026"},
                    // a zone is taken off: the moment in UTC is the day before
                    DateCase{u"2026-03-18T00:30:00+01:00", u"17.03.2026"}, DateCase{u"2026-02-30", u""},
                    DateCase{u"gestern", u""}, DateCase{u"", u""}));

TEST_F(MergeValuesTest, DateConversionKeepsDatesAndNull) {
    const Variant date = Variant::fromDate(norvik::TDateTimeUtils::EncodeDate(2026, 1, 5));
    EXPECT_EQ(TFeedbackMergeValues::ConvertDate(date), date);
    EXPECT_TRUE(TFeedbackMergeValues::ConvertDate(Variant::null()).isNull());
    EXPECT_TRUE(TFeedbackMergeValues::ConvertDate(Variant()).isNull());
}

TEST_F(MergeValuesTest, MissingDatesOfAReferralAreEmptied) {
    state.edtTHPEnd = Variant::fromDate(norvik::TDateTimeUtils::EncodeDate(2026, 1, 5));
    Prepare(QStringLiteral(R"({"referral":{"start":null}})"));
    EXPECT_TRUE(state.edtTHPStart.isNull());
    EXPECT_TRUE(state.edtTHPEnd.isNull());
}

TEST_F(MergeValuesTest, PresetsSelectByCodeIgnoringLetterCase) {
    Prepare(QStringLiteral(R"({"presets":{"Q01.1":"02","q01.2":"ab"}})"));
    EXPECT_EQ(Box(QStringLiteral("q01.1")).ItemIndex, 1);
    EXPECT_EQ(Box(QStringLiteral("q01.1")).Text, QStringLiteral("besser"));
    EXPECT_EQ(Box(QStringLiteral("q01.2")).ItemIndex, 1);
    EXPECT_EQ(Box(QStringLiteral("q01.2")).Text, QStringLiteral("mehr"));
    EXPECT_EQ(Box(QStringLiteral("q02")).ItemIndex, -1);
}

TEST_F(MergeValuesTest, PresetOfARepeatedCodeSelectsTheLastAnswer) {
    Prepare(QStringLiteral(R"({"presets":{"q02":"02"}})"));
    EXPECT_EQ(Box(QStringLiteral("q02")).ItemIndex, 2);
    EXPECT_EQ(Box(QStringLiteral("q02")).Text, QStringLiteral("zweite"));
}

TEST_F(MergeValuesTest, NullPresetSelectsTheAnswerWithoutCode) {
    Prepare(QStringLiteral(R"({"presets":{"q02":null}})"));
    EXPECT_EQ(Box(QStringLiteral("q02")).Text, QStringLiteral("ohne Code"));
}

TEST_F(MergeValuesTest, PresetWithUnknownCodeClearsTheSelection) {
    Prepare(QStringLiteral(R"({"presets":{"q02":"01"}})"));
    Prepare(QStringLiteral(R"({"presets":{"q02":"99"}})"));
    EXPECT_EQ(Box(QStringLiteral("q02")).ItemIndex, -1);
    EXPECT_EQ(Box(QStringLiteral("q02")).Text, QString());
}

TEST_F(MergeValuesTest, PresetReachesEveryQuestionOfItsName) {
    Prepare(QStringLiteral(R"({"presets":{"dup":"01","nope":"01"}})"));
    EXPECT_EQ(Box(QStringLiteral("dup")).Text, QStringLiteral("a1"));
    EXPECT_EQ(Box(QStringLiteral("DUP")).Text, QStringLiteral("b1"));
    EXPECT_EQ(Box(QStringLiteral("q02")).ItemIndex, -1);
}

TEST_F(MergeValuesTest, MergeFieldsComeFromTheControls) {
    state.edtPATFirstname = QStringLiteral(" Eva ");
    state.edtPATLastname = QStringLiteral("Muster");
    state.edtPATSVNr = QStringLiteral("1237010180");
    state.edtPATGender.SetItemIndex(1);
    state.edtTHPStart = Variant::fromDate(norvik::TDateTimeUtils::EncodeDate(2026, 2, 2) + 0.75);
    state.edtTHPEnd = Variant::fromDate(norvik::TDateTimeUtils::EncodeDate(2026, 2, 27));
    state.edtTHPDiagnosis = QStringLiteral("Lumbalgie");
    state.edtTHPTherapist = QStringLiteral("Anna Berger");
    state.edtTHPTherapistExtension = QStringLiteral("Physiotherapeutin");
    state.edtDOCName = QStringLiteral("Dr. Huber");
    state.edtDOCStreet = QStringLiteral("Ring 2");
    state.edtDOCZIPCity = QStringLiteral("8010 Graz");
    state.edtDOCSalutation = QStringLiteral("Lieber Kollege");
    TFeedbackMergeValues::BuildMergeFields(state);
    EXPECT_EQ(Merged("PATGESCHLECHT"), QStringLiteral("Ihrer Patientin"));
    EXPECT_EQ(Merged("PATIENT"), QStringLiteral("Eva Muster (1237010180)"));
    EXPECT_EQ(Merged("VON"), QStringLiteral("02.02.2026"));
    EXPECT_EQ(Merged("BIS"), QStringLiteral("27.02.2026"));
    EXPECT_EQ(Merged("DIAGNOSE"), QStringLiteral("Lumbalgie"));
    EXPECT_EQ(Merged("THERAPEUT"), QStringLiteral("Anna Berger"));
    EXPECT_EQ(Merged("BERUFSBEZEICHNUNG"), QStringLiteral("Physiotherapeutin"));
    EXPECT_EQ(Merged("ARZT_NAME"), QStringLiteral("Dr. Huber"));
    EXPECT_EQ(Merged("ARZT_STRASSE"), QStringLiteral("Ring 2"));
    EXPECT_EQ(Merged("ARZT_PLZORT"), QStringLiteral("8010 Graz"));
    EXPECT_EQ(Merged("ARZT_DIREKTANREDE"), QStringLiteral("Lieber Kollege"));
    EXPECT_EQ(state.FValues->Count(), 11);
}

TEST_F(MergeValuesTest, GenderPhraseFollowsTheSelection) {
    const QStringList expected{QStringLiteral("von"), QStringLiteral("Ihres Patienten"),
                               QStringLiteral("Ihrer Patientin"), QStringLiteral("von")};
    for (int index = -1; index <= 2; ++index) {
        state.edtPATGender.SetItemIndex(index);
        TFeedbackMergeValues::BuildMergeFields(state);
        EXPECT_EQ(Merged("PATGESCHLECHT"), expected.at(index + 1)) << index;
    }
}

TEST_F(MergeValuesTest, PatientLeavesOutEmptyNamesAndAnEmptyNumber) {
    state.edtPATLastname = QStringLiteral("Muster ");
    state.edtPATFirstname = QStringLiteral("   ");
    TFeedbackMergeValues::BuildMergeFields(state);
    EXPECT_EQ(Merged("PATIENT"), QStringLiteral("Muster"));
    state.edtPATSVNr = QStringLiteral(" 12 ");
    TFeedbackMergeValues::BuildMergeFields(state);
    EXPECT_EQ(Merged("PATIENT"), QStringLiteral("Muster ( 12 )"));
}

TEST_F(MergeValuesTest, RemovedDateKeepsItsEarlierValue) {
    state.edtTHPStart = Variant::fromDate(norvik::TDateTimeUtils::EncodeDate(2026, 2, 2));
    TFeedbackMergeValues::BuildMergeFields(state);
    state.edtTHPStart = Variant::null();
    TFeedbackMergeValues::BuildMergeFields(state);
    EXPECT_EQ(Merged("VON"), QStringLiteral("02.02.2026"));
    // never given: the placeholder stays in the letter
    EXPECT_FALSE(state.FValues->ValueExists(QStringLiteral("BIS")));
}
