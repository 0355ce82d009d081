#include "velmora/proposal/gear_step.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "velmora/reference/frm_eng_val.h"
#include "velmora/reference/frm_pdm_val.h"

#include "support/proposal_workshop.h"

namespace velmora::proposal {
namespace {

using reference::frmENGVal;
using reference::nIdEngranaje;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class GearStepTest : public ::testing::Test {
  protected:
    GearStepTest() {
        nIdEngranaje = 0;
        for (const char* family : {"0", "1"}) {
            shop.database->execute(
                std::string("INSERT INTO ENG (ENG_Tipo,ENG_Modulo,ENG_Z,ENG_Paso,ENG_Dp,ENG_Di,ENG_De,ENG_Dm,ENG_D1,"
                            "ENG_H,ENG_A,ENG_B,ENG_C) VALUES (") +
                family + ",4,40,12.57,160,150,168,95,24,9,65,40,25)");
        }
    }
    void inGearForm(std::function<void(frmENGVal&)> user) {
        shop.screen.queueModal([user = std::move(user)](screen::Form& form) { user(dynamic_cast<frmENGVal&>(form)); });
    }
    static void chooseByTeeth(frmENGVal& form) {
        form.moveFocus(form.fields().Text1(1), screen::Form::Insist::yes);
        form.fields().Text1(1).setText("40");
        form.leaveFocus();
        form.fields().dbgRs.onButtonClick(0);
    }

    support::ProposalWorkshop shop;
};

TEST_F(GearStepTest, EachTypeChoosesAmongItsOwnFamily) {
    for (const auto& [type, family] : {std::pair{8, 0}, std::pair{9, 1}}) {
        shop.choose("cboTipoPre", type);
        nIdEngranaje = 77;
        inGearForm([family = family](frmENGVal& form) {
            EXPECT_EQ(form.fields().cboDobles.listIndex(), family);
            EXPECT_FALSE(form.fields().cboDobles.enabled());
            EXPECT_EQ(nIdEngranaje, 0) << "what was chosen before counts no more";
            EXPECT_EQ(form.fields().Text1(6).isVisible(), family == 0);
            chooseByTeeth(form);
        });
        shop.press("cmdEng");
        EXPECT_EQ(nIdEngranaje, family + 1);
        EXPECT_EQ(shop.text("Text1(15)"), "168");
        EXPECT_EQ(shop.focused(), "Text1(12)");
    }
}

TEST_F(GearStepTest, ClosingWithoutChoosingChangesNoField) {
    shop.choose("cboTipoPre", 8);
    shop.fields().Text1(1).setText("33");
    const std::vector<std::string> before = shop.texts();
    inGearForm([](frmENGVal&) {});
    shop.press("cmdEng");
    EXPECT_EQ(nIdEngranaje, 0);
    EXPECT_EQ(shop.texts(), before);
    EXPECT_THAT(shop.errors, IsEmpty());
}

TEST_F(GearStepTest, AGearSavedInTheFormComesBackAtOnce) {
    shop.choose("cboTipoPre", 8);
    inGearForm([](frmENGVal& form) {
        const std::vector<std::pair<int, const char*>> entries{{0, "2"}, {1, "20"}, {11, "4,5"}, {7, "10"}};
        for (const auto& [i, text] : entries) {
            form.moveFocus(form.fields().Text1(i), screen::Form::Insist::yes);
            form.fields().Text1(i).setText(text);
        }
        form.leaveFocus();
        form.fields().cmdGrabar.onClick();
    });
    shop.press("cmdEng");
    EXPECT_EQ(nIdEngranaje, 3);
    EXPECT_EQ(shop.text("Text1(1)"), "20");
    EXPECT_EQ(shop.text("Text1(3)"), "40");
    EXPECT_EQ(shop.text("txtModulo"), "2");
}

TEST_F(GearStepTest, OnAnotherTypeTheGearOfTheLastChoiceIsReadAgainWithoutTheForm) {
    shop.choose("cboTipoPre", 0);
    EXPECT_FALSE(shop.enabled("cmdEng"));
    nIdEngranaje = 1;
    shop.fields().cmdEng.onClick();
    EXPECT_EQ(shop.text("Text1(15)"), "168");
    EXPECT_EQ(shop.text("txtModulo"), "4");
}

TEST_F(GearStepTest, AStoredGearChoosesAnotherAfterChanges) {
    shop.choose("cboTipoPre", 8);
    inGearForm(chooseByTeeth);
    shop.press("cmdEng");
    shop.enterCustomerAndUnits();
    shop.key(screen::Key::f5);
    EXPECT_THAT(shop.screen.messageTexts(), ElementsAre("Datos Grabados satisfactoriamente"));
    EXPECT_FALSE(shop.enabled("cmdEng")) << "a gear that is stored";
    shop.press("cmdCambios");
    EXPECT_TRUE(shop.enabled("cmdEng"));
    EXPECT_EQ(shop.text("Frame2"), "Medidas del Engranaje");
}

TEST_F(GearStepTest, TheValuesOfTheDoublesOpenFromTheirButton) {
    std::string opened;
    EXPECT_TRUE(shop.enabled("XPButton1"));
    shop.screen.queue(screen::Answer::no);
    shop.screen.queueModal([&](screen::Form& form) { opened = form.name(); });
    shop.press("XPButton1");
    EXPECT_EQ(opened, "frmPDMVal");
    EXPECT_THAT(shop.errors, IsEmpty());
}

}  // namespace
}  // namespace velmora::proposal
