#include "Scaling.h"

#include "FormShortCuts.h"

#include <gtest/gtest.h>
#include <limits>

using namespace norvik;

namespace {

struct MulDivCase {
    int Number;
    int Numerator;
    int Denominator;
    int Expected;
};

class MulDivTest : public ::testing::TestWithParam<MulDivCase> {};

TEST_P(MulDivTest, RoundsHalvesAwayFromZero) {
    const MulDivCase& c = GetParam();
    EXPECT_EQ(MulDiv(c.Number, c.Numerator, c.Denominator), c.Expected)
        << c.Number << " * " << c.Numerator << " / " << c.Denominator;
}

constexpr int IntMax = std::numeric_limits<int>::max();

INSTANTIATE_TEST_SUITE_P(Cases, MulDivTest,
                         ::testing::Values(MulDivCase{25, 144, 96, 38}, MulDivCase{-25, 144, 96, -38},
                                           MulDivCase{25, 144, -96, -38}, MulDivCase{-25, -144, 96, 38},
                                           MulDivCase{5, 1, 4, 1}, MulDivCase{7, 1, 4, 2},
                                           MulDivCase{3, 1, 2, 2}, MulDivCase{-3, 1, 2, -2},
                                           MulDivCase{10, 120, 96, 13}, MulDivCase{0, 144, 96, 0},
                                           MulDivCase{IntMax, IntMax, IntMax, IntMax},
                                           MulDivCase{IntMax, 2, 1, -1}, MulDivCase{25, 144, 0, -1}));

TEST(ScalingTest, DesignDensityLeavesPixelsAlone) {
    for (int pixels : {0, 1, 25, 150, 735})
        EXPECT_EQ(ScaleFor(pixels, 96), pixels);
}

TEST(ScalingTest, HigherDensityGrowsPixels) {
    EXPECT_EQ(ScaleFor(25, 144), 38);
    EXPECT_EQ(ScaleFor(150, 120), 188);
    EXPECT_EQ(ScaleFor(18, 192), 36);
}

TEST(ScalingTest, ScreenScaleUsesTheScreensDensity) {
    EXPECT_EQ(Scale(96), ScreenPixelsPerInch());
}

struct KeyCase {
    const char* Name;
    int Key;
    Qt::KeyboardModifiers Modifiers;
    bool ForControl;
};

void PrintTo(const KeyCase& ACase, std::ostream* AOut) {
    *AOut << ACase.Name;
}

class ShortCutTest : public ::testing::TestWithParam<KeyCase> {};

TEST_P(ShortCutTest, ControlKeysOfTheListCommandsStayWithTheControl) {
    EXPECT_EQ(IsKeyForFocusedControl(GetParam().Key, GetParam().Modifiers), GetParam().ForControl);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ShortCutTest,
    ::testing::Values(KeyCase{"CtrlE", Qt::Key_E, Qt::ControlModifier, true},
                      KeyCase{"CtrlF", Qt::Key_F, Qt::ControlModifier, true},
                      KeyCase{"CtrlN", Qt::Key_N, Qt::ControlModifier, true},
                      KeyCase{"CtrlS", Qt::Key_S, Qt::ControlModifier, true},
                      KeyCase{"CtrlPlus", Qt::Key_Plus, Qt::ControlModifier, true},
                      KeyCase{"CtrlKeypadPlus", Qt::Key_Plus, Qt::ControlModifier | Qt::KeypadModifier, true},
                      KeyCase{"CtrlReturn", Qt::Key_Return, Qt::ControlModifier, true},
                      KeyCase{"CtrlKeypadEnter", Qt::Key_Enter, Qt::ControlModifier | Qt::KeypadModifier,
                              true},
                      KeyCase{"CtrlShiftS", Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier, false},
                      KeyCase{"CtrlAltE", Qt::Key_E, Qt::ControlModifier | Qt::AltModifier, false},
                      KeyCase{"PlainS", Qt::Key_S, Qt::NoModifier, false},
                      KeyCase{"AltS", Qt::Key_S, Qt::AltModifier, false},
                      KeyCase{"CtrlP", Qt::Key_P, Qt::ControlModifier, false},
                      KeyCase{"CtrlMinus", Qt::Key_Minus, Qt::ControlModifier, false}),
    [](const auto& info) { return std::string(info.param.Name); });

} // namespace
