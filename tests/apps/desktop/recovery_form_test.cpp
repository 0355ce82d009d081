#include "velmora/apps/desktop/recovery_form.h"

#include <gtest/gtest.h>

namespace velmora::desktop {
namespace {

TEST(RecoveryForm, AButtonAnswersAndClosesAndEscLeavesItForLater) {
    RecoveryForm first("Piñon Especial, Z 38");
    EXPECT_EQ(first.answer(), RecoveryForm::Answer::later);
    first.keyDown(screen::Key::escape);
    EXPECT_EQ(first.answer(), RecoveryForm::Answer::later);

    RecoveryForm second("Piñon Especial, Z 38");
    dynamic_cast<screen::Button&>(*second.find("cmdRecuperar")).onClick();
    EXPECT_EQ(second.answer(), RecoveryForm::Answer::recover);

    RecoveryForm third("Piñon Especial, Z 38");
    dynamic_cast<screen::Button&>(*third.find("cmdDescartar")).onClick();
    EXPECT_EQ(third.answer(), RecoveryForm::Answer::discard);
}

}  // namespace
}  // namespace velmora::desktop
