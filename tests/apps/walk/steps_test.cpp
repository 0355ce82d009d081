#include "velmora/apps/walk/steps.h"

#include <gtest/gtest.h>

namespace velmora::walk {
namespace {

Key keyAt(const std::vector<Step>& steps, std::size_t at) {
    return std::get<Key>(steps.at(at));
}

TEST(WalkSteps, EachKeyIsAStep) {
    const auto steps = stepsOf("keys 7,⏎{F12}{^N}{!E}{Esc}␣{+F1}\n");
    ASSERT_EQ(steps.size(), 9U);
    EXPECT_EQ(keyAt(steps, 0).text, QStringLiteral("7"));
    EXPECT_EQ(keyAt(steps, 1).text, QStringLiteral(","));
    EXPECT_EQ(keyAt(steps, 2).code, Qt::Key_Return);
    EXPECT_EQ(keyAt(steps, 3).code, Qt::Key_F12);
    EXPECT_EQ(keyAt(steps, 4).code, Qt::Key_N);
    EXPECT_EQ(keyAt(steps, 4).modifiers, Qt::ControlModifier);
    EXPECT_EQ(keyAt(steps, 5).modifiers, Qt::AltModifier);
    EXPECT_EQ(keyAt(steps, 5).text, QStringLiteral("e"));
    EXPECT_EQ(keyAt(steps, 6).code, Qt::Key_Escape);
    EXPECT_EQ(keyAt(steps, 7).text, QStringLiteral(" "));
    EXPECT_EQ(keyAt(steps, 8).code, Qt::Key_F1);
    EXPECT_EQ(keyAt(steps, 8).modifiers, Qt::ShiftModifier);
}

TEST(WalkSteps, PicturesAndPapersHaveNames) {
    const auto steps = stepsOf("# comment\n\npicture 01_inicio\nwindow caja\npaper propuesta\n");
    ASSERT_EQ(steps.size(), 3U);
    EXPECT_EQ(std::get<ScreenPicture>(steps[0]).name, "01_inicio");
    EXPECT_EQ(std::get<WindowPicture>(steps[1]).name, "caja");
    EXPECT_EQ(std::get<Paper>(steps[2]).name, "propuesta");
}

TEST(WalkSteps, WhatIsNoStepIsRefused) {
    for (const char* wrong : {"press 7", "picture", "picture ", "keys {F13}", "keys {Ins}", "keys {F0}"}) {
        EXPECT_THROW(stepsOf(wrong), NoStep) << wrong;
    }
}

}  // namespace
}  // namespace velmora::walk
