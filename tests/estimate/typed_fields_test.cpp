#include "velmora/estimate/typed_fields.h"

#include <gtest/gtest.h>

#include "velmora/platform/screen/form.h"

namespace velmora::estimate {
namespace {

class TypedFieldsTest : public ::testing::Test {
  protected:
    TypedFieldsTest() {
        for (screen::TextBox* box : {&field, &other}) {
            box->onChange = [this, box] { typed.changed(*box); };
        }
    }

    screen::Form form{"form"};
    screen::TextBox field{form, "field"};
    screen::TextBox other{form, "other"};
    TypedFields typed;
};

TEST_F(TypedFieldsTest, AChangeOfTheFieldWithTheFocusIsTheUsers) {
    field.setFocus();
    field.setText("5");
    other.setText("6");
    EXPECT_TRUE(typed.contain(field));
    EXPECT_FALSE(typed.contain(other)) << "the program writes into the fields around";
}

TEST_F(TypedFieldsTest, PassingThroughIsNoChange) {
    field.setText("5");
    field.setFocus();
    field.setText("5");
    form.leaveFocus();
    EXPECT_FALSE(typed.contain(field));
}

TEST_F(TypedFieldsTest, WhatTheProgramWritesIntoTheFieldThatIsLeftIsNotTheUsers) {
    field.onLostFocus = [this] {
        const TypedFields::ProgramWrites masks(typed);
        field.setText("5,00");
    };
    field.setFocus();
    form.leaveFocus();
    EXPECT_EQ(field.text(), "5,00");
    EXPECT_FALSE(typed.contain(field));
    field.setFocus();
    field.setText("6");
    EXPECT_TRUE(typed.contain(field)) << "the next change is the user's again";
}

TEST_F(TypedFieldsTest, AnotherProposalForgetsWhatWasTyped) {
    field.setFocus();
    field.setText("5");
    typed.forget();
    EXPECT_FALSE(typed.contain(field));
}

}  // namespace
}  // namespace velmora::estimate
