#include "velmora/platform/toolkit/layout_captions.h"

#include <gtest/gtest.h>

#include "velmora/platform/screen/form.h"

namespace velmora::toolkit {
namespace {

using namespace screen;
namespace lay = screen::layout;

class LayoutCaptionsTest : public ::testing::Test {
  protected:
    Form form{"frm"};
    Label label{form, "label"};
    TextBox box{form, "Text1", 3};
};

TEST_F(LayoutCaptionsTest, ACaptionIsALabelsOrAFixedOne) {
    label.setCaption("Llanta");
    EXPECT_EQ(captionOf(lay::field(label, box)), "Llanta");
    EXPECT_EQ(captionOf(lay::field("Ancho", box)), "Ancho");
    EXPECT_EQ(captionOf(lay::plain(box)), "");
    label.setCaption("");
    EXPECT_TRUE(hasCaption(lay::field(label, box))) << "its text may come later";
    EXPECT_FALSE(hasCaption(lay::plain(box)));
}

TEST_F(LayoutCaptionsTest, AFieldIsCalledByItsOwnNameThenByItsCaptionWithItsUnit) {
    EXPECT_EQ(accessibleNameOf(lay::plain(box)), "Text1(3)");
    box.setToolTip("Número de dientes");
    EXPECT_EQ(accessibleNameOf(lay::plain(box)), "Número de dientes");
    EXPECT_EQ(accessibleNameOf(lay::field("Ancho", box)), "Ancho");
    EXPECT_EQ(accessibleNameOf(lay::field("Ancho", box).units("mm")), "Ancho (mm)");
    box.setAccessibleName("Ancho del disco");
    EXPECT_EQ(accessibleNameOf(lay::field("Ancho", box)), "Ancho del disco");
}

TEST_F(LayoutCaptionsTest, ACheckBoxOrButtonIsCalledByItsText) {
    CheckBox check(form, "chkAcopla");
    EXPECT_EQ(accessibleNameOf(lay::plain(check)), "chkAcopla");
    check.setCaption("&Acoplamiento");
    EXPECT_EQ(accessibleNameOf(lay::plain(check)), "Acoplamiento");
}

}  // namespace
}  // namespace velmora::toolkit
