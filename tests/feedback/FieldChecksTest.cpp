#include "TDateTimeUtils.h"
#include "TFeedbackFieldChecks.h"
#include "TFeedbackWizardState.h"

#include <gtest/gtest.h>
#include <ostream>

static void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

namespace {

const QString RequiredText = QStringLiteral("Der Wert darf nicht leer bleiben.");
const QString SVNrText =
    QStringLiteral("Die SVNr ist syntaktisch falsch. Bitte kontrollieren Sie die Nummer.");

struct CheckResult {
    bool error = false;
    QString text;
};

CheckResult Check(TFeedbackFieldChecks::TValidateEvent AEvent, const QString& AValue) {
    CheckResult result;
    AEvent(AValue, result.text, result.error);
    return result;
}

// a wizard on which pages 0 and 1 are complete
TFeedbackWizardState CompleteState() {
    TFeedbackWizardState state;
    state.edtPATLastname = QStringLiteral("Muster");
    state.edtPATFirstname = QStringLiteral("Eva");
    state.edtPATSVNr = QStringLiteral("1237010180");
    state.edtDOCName = QStringLiteral("Dr. Huber");
    state.edtDOCMailbox = QStringLiteral("ME999");
    state.edtTHPDiagnosis = QStringLiteral("Lumbalgie");
    state.edtTHPStart = norvik::Variant::fromDate(norvik::TDateTimeUtils::EncodeDate(2026, 2, 2));
    state.edtTHPEnd = norvik::Variant::fromDate(norvik::TDateTimeUtils::EncodeDate(2026, 2, 27));
    state.edtTHPTherapist = QStringLiteral("Anna Berger");
    state.edtTHPTherapistExtension = QStringLiteral("Physiotherapeutin");
    state.edtTHPTherapistField = QStringLiteral("PHY");
    state.edtTHPTherapistMailbox = QStringLiteral("ME111");
    return state;
}

// empties the control of that name, whatever its kind
void Clear(TFeedbackWizardState& AState, const QString& AName) {
    for (const auto& edit : TFeedbackWizardState::TextEdits())
        if (edit.Name == AName)
            AState.*edit.Member = QStringLiteral("  ");
    for (const auto& edit : TFeedbackWizardState::DateEdits())
        if (edit.Name == AName)
            AState.*edit.Member = norvik::Variant::null();
}

class PageControlTest : public testing::TestWithParam<std::pair<int, const char*>> {};

} // namespace

TEST(FieldChecksTest, RequiredFieldMustNotBeBlank) {
    EXPECT_TRUE(Check(&TFeedbackFieldChecks::FieldRequiredValidate, QString()).error);
    EXPECT_EQ(Check(&TFeedbackFieldChecks::FieldRequiredValidate, QStringLiteral(" \t ")).text, RequiredText);
    const CheckResult filled = Check(&TFeedbackFieldChecks::FieldRequiredValidate, QStringLiteral(" x "));
    EXPECT_FALSE(filled.error);
    EXPECT_EQ(filled.text, QString());
}

TEST(FieldChecksTest, SVNrMustHaveTenCharactersAndAValidForm) {
    for (const QString& valid : {QStringLiteral("1237010180"), QStringLiteral("0000150580")})
        EXPECT_FALSE(Check(&TFeedbackFieldChecks::edtPATSVNrPropertiesValidate, valid).error)
            << valid.toStdString();
    for (const QString& invalid :
         {QString(), QStringLiteral("1234"), QStringLiteral("123701018"), QStringLiteral("1237010180 "),
          QStringLiteral("1238010180"), QStringLiteral("abcdefghij")}) {
        const CheckResult result = Check(&TFeedbackFieldChecks::edtPATSVNrPropertiesValidate, invalid);
        EXPECT_TRUE(result.error) << invalid.toStdString();
        EXPECT_EQ(result.text, SVNrText);
    }
}

TEST(FieldChecksTest, EachControlHasItsEvent) {
    EXPECT_EQ(TFeedbackFieldChecks::ValidateEventOf(QStringLiteral("edtPATSVNr")),
              &TFeedbackFieldChecks::edtPATSVNrPropertiesValidate);
    // street and location show the error mark, though the page does not wait for them
    EXPECT_EQ(TFeedbackFieldChecks::ValidateEventOf(QStringLiteral("edtDOCStreet")),
              &TFeedbackFieldChecks::FieldRequiredValidate);
    EXPECT_EQ(TFeedbackFieldChecks::ValidateEventOf(QStringLiteral("edtPATStreet")), nullptr);
    EXPECT_TRUE(TFeedbackFieldChecks::IsFieldValid(nullptr, QString()));
}

TEST(FieldChecksTest, CompletePagesLetTheUserGoOn) {
    const TFeedbackWizardState state = CompleteState();
    EXPECT_TRUE(TFeedbackFieldChecks::IsPageComplete(state, 0));
    EXPECT_TRUE(TFeedbackFieldChecks::IsPageComplete(state, 1));
}

TEST(FieldChecksTest, ContentPageIsAlwaysCompleteAndThereIsNoPageBehindTheLast) {
    const TFeedbackWizardState empty;
    EXPECT_FALSE(TFeedbackFieldChecks::IsPageComplete(empty, 0));
    EXPECT_FALSE(TFeedbackFieldChecks::IsPageComplete(empty, 1));
    EXPECT_TRUE(TFeedbackFieldChecks::IsPageComplete(empty, 2));
    for (int index : {-1, 3, 4})
        EXPECT_FALSE(TFeedbackFieldChecks::IsPageComplete(CompleteState(), index)) << index;
}

TEST(FieldChecksTest, EmptyStreetAndLocationOfThePhysicianDoNotHoldThePage) {
    TFeedbackWizardState state = CompleteState();
    Clear(state, QStringLiteral("edtDOCStreet"));
    Clear(state, QStringLiteral("edtDOCZIPCity"));
    Clear(state, QStringLiteral("edtPATStreet"));
    EXPECT_TRUE(TFeedbackFieldChecks::IsPageComplete(state, 0));
    EXPECT_TRUE(TFeedbackFieldChecks::IsPageComplete(state, 1));
}

TEST(FieldChecksTest, NineDigitNumberHoldsThePatientPage) {
    TFeedbackWizardState state = CompleteState();
    state.edtPATSVNr = QStringLiteral("123701018");
    EXPECT_FALSE(TFeedbackFieldChecks::IsPageComplete(state, 0));
}

TEST_P(PageControlTest, EmptyCheckedControlHoldsItsPage) {
    TFeedbackWizardState state = CompleteState();
    Clear(state, QString::fromLatin1(GetParam().second));
    EXPECT_FALSE(TFeedbackFieldChecks::IsPageComplete(state, GetParam().first));
    EXPECT_TRUE(TFeedbackFieldChecks::IsPageComplete(state, 1 - GetParam().first));
}

INSTANTIATE_TEST_SUITE_P(
    Controls, PageControlTest,
    testing::Values(std::pair{0, "edtPATLastname"}, std::pair{0, "edtPATFirstname"},
                    std::pair{0, "edtPATSVNr"}, std::pair{1, "edtDOCName"}, std::pair{1, "edtDOCMailbox"},
                    std::pair{1, "edtTHPDiagnosis"}, std::pair{1, "edtTHPStart"}, std::pair{1, "edtTHPEnd"},
                    std::pair{1, "edtTHPTherapist"}, std::pair{1, "edtTHPTherapistExtension"},
                    std::pair{1, "edtTHPTherapistField"}, std::pair{1, "edtTHPTherapistMailbox"}));
