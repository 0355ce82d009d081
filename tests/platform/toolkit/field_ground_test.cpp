#include "velmora/platform/toolkit/field_ground.h"

#include <gtest/gtest.h>

#include "velmora/platform/screen/form.h"

namespace velmora::toolkit {
namespace {

using screen::Role;

class FieldGroundTest : public ::testing::Test {
  protected:
    FieldGroundTest() { box.setFrame(&frame); }

    screen::Form form{"frm"};
    screen::Frame frame{form, "frame"};
    screen::TextBox box{form, "box"};
};

TEST_F(FieldGroundTest, TheRoleTellsEnteredFromCalculated) {
    EXPECT_EQ(groundOf(box, Role::entered), Ground::entered);
    EXPECT_EQ(groundOf(box, Role::calculated), Ground::calculated);
    EXPECT_EQ(groundOf(box, Role::total), Ground::calculated);
    EXPECT_EQ(groundOf(box, Role::label), Ground::none);
}

TEST_F(FieldGroundTest, WhatNobodyCanTypeIntoLooksCalculated) {
    box.setEnabled(false);
    EXPECT_EQ(groundOf(box, Role::entered), Ground::calculated);
    box.setEnabled(true);
    frame.setEnabled(false);
    EXPECT_EQ(groundOf(box, Role::entered), Ground::calculated);
}

TEST_F(FieldGroundTest, TheFocusShowsUnlessTheFormIsDisabled) {
    form.moveFocus(box);
    EXPECT_EQ(groundOf(box, Role::entered), Ground::focus);
    EXPECT_EQ(groundOf(box, Role::total), Ground::focus);
    form.setEnabled(false);
    EXPECT_EQ(groundOf(box, Role::entered), Ground::entered);
}

TEST_F(FieldGroundTest, AColourThatCodeHasSetWinsOverFocusAndRole) {
    form.moveFocus(box);
    box.setBackColor(screen::colors::red);
    EXPECT_EQ(groundOf(box, Role::calculated), Ground::own);
    EXPECT_EQ(groundOf(box, Role::label), Ground::none) << "a label on a sketch has none";
}

}  // namespace
}  // namespace velmora::toolkit
