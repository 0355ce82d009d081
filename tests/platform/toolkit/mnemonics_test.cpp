#include "velmora/platform/toolkit/mnemonics.h"

#include <gmock/gmock.h>

namespace velmora::toolkit {
namespace {

using ::testing::ElementsAre;

TEST(MnemonicsTest, TheLetterBehindTheMarkIsACapital) {
    EXPECT_EQ(mnemonicOf("&Grabar (F5)"), U'G');
    EXPECT_EQ(mnemonicOf("D&ocumentos"), U'O');
    EXPECT_EQ(mnemonicOf("Pi&ñones"), U'Ñ');
}

TEST(MnemonicsTest, NoMarkNoLetter) {
    EXPECT_EQ(mnemonicOf("Grabar"), U'\0');
    EXPECT_EQ(mnemonicOf(""), U'\0');
    EXPECT_EQ(mnemonicOf("Al final &"), U'\0');
}

TEST(MnemonicsTest, TwoMarksStandForOneAndMarkNothing) {
    EXPECT_EQ(mnemonicOf("Rueda && Hijos"), U'\0');
    EXPECT_EQ(mnemonicOf("Rueda && &Hijos"), U'H');
}

class MnemonicTargetTest : public ::testing::Test {
  protected:
    MnemonicTargetTest() {
        save.setCaption("&Grabar");
        leave.setCaption("&Salir");
        bar.setItems({{"Visualizar", {}}, {"", {}}, {"Vista", {}}, {"&Otra", {}}});
    }
    screen::Form form{"frm"};
    screen::Button save{form, "save"};
    screen::Button leave{form, "leave"};
    screen::Toolbar bar{form, "bar"};
};

TEST_F(MnemonicTargetTest, EachItemOfABarGetsALetterOfItsOwn) {
    EXPECT_THAT(captionsOf(bar), ElementsAre("&Visualizar", "", "V&ista", "&Otra"));
}

TEST_F(MnemonicTargetTest, AnItemWhoseLettersAreAllTakenHasNone) {
    bar.setItems({{"Ab", {}}, {"Ba", {}}, {"Ab 1", {}}});
    EXPECT_THAT(captionsOf(bar), ElementsAre("&Ab", "&Ba", "Ab 1"));
}

TEST_F(MnemonicTargetTest, FindsTheButtonByItsLetterInEitherCase) {
    EXPECT_EQ(targetOf(form, U's')->button, &leave);
    EXPECT_EQ(targetOf(form, U'G')->button, &save);
    EXPECT_FALSE(targetOf(form, U'x').has_value());
}

TEST_F(MnemonicTargetTest, FindsTheItemOfABarCountedFromOneWithItsSeparators) {
    const auto target = targetOf(form, U'i');
    ASSERT_TRUE(target.has_value());
    EXPECT_EQ(target->button, nullptr);
    EXPECT_EQ(target->bar, &bar);
    EXPECT_EQ(target->item, 3);
}

TEST_F(MnemonicTargetTest, PassesOverWhatCannotTakeTheFocus) {
    save.setEnabled(false);
    EXPECT_FALSE(targetOf(form, U'g').has_value());
    leave.setCaption("&Guardar");
    EXPECT_EQ(targetOf(form, U'g')->button, &leave);
}

}  // namespace
}  // namespace velmora::toolkit
