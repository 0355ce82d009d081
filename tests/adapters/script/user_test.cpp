#include "velmora/adapters/script/user.h"

#include <sstream>

#include <gmock/gmock.h>

#include "contract_form.h"

namespace velmora::script {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class UserTest : public ::testing::Test {
  protected:
    std::ostringstream out;
    Journal journal{out};
    User user{journal};
    test::ContractForm form;
};

TEST_F(UserTest, AFieldAtAPlaceWhereAnotherHasItsTurnRefuses) {
    EXPECT_FALSE(user.focus(form.inSecond));
    EXPECT_FALSE(user.set(form.inSecond, "7"));
    EXPECT_EQ(form.inSecond.text(), "");
    form.first.setVisible(false);
    EXPECT_TRUE(user.set(form.inSecond, "7"));
    EXPECT_FALSE(user.focus(form.inFirst));
}

TEST_F(UserTest, AMnemonicThatWouldOpenAMenuPressesNothing) {
    form.bar.setItems({{"Nuevo", {{"FICHERO", "Fichero existente"}}}, {"Ver", {}}});
    user.pressMnemonic(form, U'n');
    EXPECT_THAT(form.log, IsEmpty());
    user.pressMnemonic(form, U'v');
    EXPECT_THAT(form.log, ElementsAre("item 2"));
}

TEST_F(UserTest, ARowOfADisabledGridIsNotMoved) {
    form.grid.setEnabled(false);
    EXPECT_FALSE(user.moveRow(form.grid, toolkit::RowMove::down));
    EXPECT_EQ(form.grid.recordset().position(), 0U);
}

}  // namespace
}  // namespace velmora::script
