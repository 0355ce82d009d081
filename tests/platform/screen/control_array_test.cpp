#include "velmora/platform/screen/control_array.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "velmora/platform/screen/form.h"

namespace velmora::screen {
namespace {

using ::testing::ElementsAre;

TEST(ControlArrayTest, AnIndexInAGapIsError340) {
    Form form("f");
    const ControlArray<TextBox> txtPesu(form, "txtPesu", {{0, 2}, {20, 21}});
    for (const int missing : {-1, 3, 19, 22}) {
        EXPECT_FALSE(txtPesu.contains(missing));
        try {
            txtPesu(missing);
            ADD_FAILURE() << "there is no txtPesu(" << missing << ")";
        } catch (const runtime::RuntimeError& error) {
            EXPECT_EQ(error.number(), 340);
        }
    }
    EXPECT_EQ(txtPesu(20).index(), 20);
}

TEST(ControlArrayTest, EveryControlIsFoundByNameAndIndex) {
    Form form("f");
    const ControlArray<TextBox> Text1(form, "Text1", {{0, 1}});
    const TextBox single(form, "txtModulo");
    EXPECT_EQ(form.find("Text1(1)"), &Text1(1));
    EXPECT_EQ(form.find("txtModulo"), &single);
    EXPECT_EQ(form.find("Text1"), nullptr);
    EXPECT_EQ(form.find("Text1(2)"), nullptr);
    EXPECT_EQ(form.find("text1(1)"), nullptr);
}

TEST(ControlArrayTest, ItIsGoneThroughByRisingIndex) {
    Form form("f");
    const ControlArray<TextBox> array(form, "Text4", {{50, 51}, {0, 1}});
    std::vector<int> order;
    array.forEach([&](TextBox& box) { order.push_back(box.index()); });
    EXPECT_THAT(order, ElementsAre(0, 1, 50, 51));
}

TEST(ControlArrayTest, OneHandlerIsToldTheIndex) {
    Form form("f");
    const ControlArray<TextBox> Text1(form, "Text1", {{0, 2}});
    std::vector<int> changed;
    Text1.on(&TextBox::onChange, {[&](int i) { changed.push_back(i); }});
    Text1.on(&TextBox::onKeyPress, {[&](int i, KeyPress& key) { key.character += static_cast<char32_t>(i); }});
    Text1(2).setText("x");
    Text1(0).setText("x");
    EXPECT_THAT(changed, ElementsAre(2, 0));
    KeyPress key{U'a'};
    Text1(2).onKeyPress(key);
    EXPECT_EQ(key.character, U'c');
}

}  // namespace
}  // namespace velmora::screen
