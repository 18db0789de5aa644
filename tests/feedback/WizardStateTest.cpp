#include "MemoryTherapistSource.h"
#include "TDateTimeUtils.h"
#include "TFeedbackWizardState.h"

#include <gtest/gtest.h>
#include <ostream>

static void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

namespace {

class WizardStateTest : public testing::Test {
protected:
    MemoryTherapistSource source;
    TFeedbackWizardState state;

    void AddTherapists(int ACount) {
        for (int number = 1; number <= ACount; ++number)
            source.AddTherapist(number, QStringLiteral("T%1").arg(number),
                                QStringLiteral("Beruf%1").arg(number), QStringLiteral("F%1").arg(number),
                                QStringLiteral("ME%1").arg(number));
        state.LoadConfig(source, nullptr);
    }
};

} // namespace

TEST_F(WizardStateTest, LoadConfigMakesTheFirstTherapistActiveWithoutShowingIt) {
    AddTherapists(3);
    EXPECT_EQ(state.FTPT->GetAsString(QStringLiteral("TPTZusatzText1")), QStringLiteral("T1"));
    EXPECT_EQ(state.FTPTIndex, 0);
    EXPECT_EQ(state.edtTHPTherapist, QString());
    EXPECT_TRUE(state.TherapistButtonsVisible());
    EXPECT_FALSE(state.CanShowPreviousTherapist());
    EXPECT_TRUE(state.CanShowNextTherapist());
    EXPECT_EQ(state.FConfig->Count(), 0);
}

TEST_F(WizardStateTest, TherapistButtonsWalkTheListAndStopAtItsEnds) {
    AddTherapists(3);
    state.ShowNextTherapist();
    state.ShowNextTherapist();
    EXPECT_EQ(state.FTPTIndex, 2);
    EXPECT_FALSE(state.CanShowNextTherapist());
    state.edtTHPTherapist = QStringLiteral("überschrieben");
    state.ShowNextTherapist();
    EXPECT_EQ(state.FTPTIndex, 2);
    EXPECT_EQ(state.edtTHPTherapist, QStringLiteral("T3"));
    EXPECT_EQ(state.edtTHPTherapistExtension, QStringLiteral("Beruf3"));
    EXPECT_EQ(state.edtTHPTherapistField, QStringLiteral("F3"));
    EXPECT_EQ(state.edtTHPTherapistMailbox, QStringLiteral("ME3"));
    state.ShowPreviousTherapist();
    EXPECT_EQ(state.edtTHPTherapist, QStringLiteral("T2"));
    // showing a therapist doesn't make it the active one
    EXPECT_EQ(state.FTPT->GetAsString(QStringLiteral("TPTZusatzText1")), QStringLiteral("T1"));
}

TEST_F(WizardStateTest, SingleTherapistHidesTheButtons) {
    AddTherapists(1);
    EXPECT_FALSE(state.TherapistButtonsVisible());
    EXPECT_FALSE(state.CanShowNextTherapist());
}

TEST_F(WizardStateTest, EmptyTableLeavesAnEmptyActiveTherapist) {
    AddTherapists(0);
    EXPECT_EQ(state.FTPT->Count(), 0);
    EXPECT_FALSE(state.TherapistButtonsVisible());
    state.ShowNextTherapist();
    EXPECT_EQ(state.edtTHPTherapist, QString());
}

TEST_F(WizardStateTest, GivenConfigurationIsKept) {
    auto config = norvik::TnvNamedValues::Create();
    config->SetValueAsString(QStringLiteral("ExportFolder"), QStringLiteral("/out"));
    state.LoadConfig(source, config);
    EXPECT_EQ(state.FConfig->GetAsString(QStringLiteral("ExportFolder")), QStringLiteral("/out"));
}

TEST_F(WizardStateTest, ComboBoxesOfferTheirItems) {
    EXPECT_EQ(state.edtPATGender.Items(), QStringList({QStringLiteral("Männlich"), QStringLiteral("Weiblich"),
                                                       QStringLiteral("Unbestimmt")}));
    EXPECT_EQ(state.edtPATTitle2.Items(),
              QStringList({QStringLiteral("Dr."), QStringLiteral("Mag."), QStringLiteral("Dipl.Ing."),
                           QStringLiteral("DDr."), QStringLiteral("Mag.(FH)")}));
    EXPECT_EQ(state.edtPATGender.ItemIndex(), -1);
}

TEST_F(WizardStateTest, ComboTextAndSelectionStayInStep) {
    TComboBoxState& box = state.edtPATTitle1;
    box.SetText(QStringLiteral("DDr."));
    EXPECT_EQ(box.ItemIndex(), 3);
    box.SetText(QStringLiteral("ddr."));
    EXPECT_EQ(box.ItemIndex(), -1);
    EXPECT_EQ(box.Text(), QStringLiteral("ddr."));
    box.SetItemIndex(4);
    EXPECT_EQ(box.Text(), QStringLiteral("Mag.(FH)"));
    box.SetItemIndex(5);
    EXPECT_EQ(box.ItemIndex(), -1);
    EXPECT_EQ(box.Text(), QString());
}

TEST_F(WizardStateTest, DisplayTextOfEveryKindOfControl) {
    state.edtPATLastname = QStringLiteral("Muster");
    state.edtPATGender.SetItemIndex(0);
    state.edtTHPEnd = norvik::Variant::fromDate(norvik::TDateTimeUtils::EncodeDate(2026, 12, 31) + 0.5);
    EXPECT_EQ(state.DisplayText(QStringLiteral("edtPATLastname")), QStringLiteral("Muster"));
    EXPECT_EQ(state.DisplayText(QStringLiteral("edtPATGender")), QStringLiteral("Männlich"));
    EXPECT_EQ(state.DisplayText(QStringLiteral("edtTHPEnd")), QStringLiteral("31.12.2026"));
    EXPECT_EQ(state.DisplayText(QStringLiteral("edtTHPStart")), QString());
    EXPECT_EQ(state.DisplayText(QStringLiteral("edtUnknown")), QString());
}
