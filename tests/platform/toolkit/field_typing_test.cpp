#include "velmora/platform/toolkit/field_typing.h"

#include <vector>

#include <gmock/gmock.h>

#include "velmora/platform/runtime/text.h"
#include "velmora/platform/screen/form.h"

namespace velmora::toolkit {
namespace {

using screen::KeyPress;
using screen::TextBox;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FieldTypingTest : public ::testing::Test, protected TextEditor {
  protected:
    FieldTypingTest() {
        box.onKeyPress = [this](KeyPress& press) { seen.push_back(press.character); };
    }

    void insert(char32_t character) override { edits.push_back(runtime::toUtf8(character)); }
    void erase() override { edits.emplace_back("erase"); }
    void breakLine() override { edits.emplace_back("break"); }

    char32_t type(char32_t character) { return typeInto(box, character, *this); }

    screen::Form form{"frm"};
    TextBox box{form, "box"};
    std::vector<char32_t> seen;
    std::vector<std::string> edits;
};

TEST_F(FieldTypingTest, EveryCharacterPassesKeyPressAndTextIsEdited) {
    struct Row {
        char32_t character;
        bool severalLines;
        std::vector<std::string> edits;
    };
    for (const Row& row : {Row{U'ñ', false, {"ñ"}}, Row{backspace, false, {"erase"}}, Row{carriageReturn, false, {}},
                           Row{carriageReturn, true, {"break"}}, Row{escape, false, {}}, Row{escape, true, {}}}) {
        seen.clear();
        edits.clear();
        box.setMultiLine(row.severalLines);
        EXPECT_EQ(type(row.character), row.character);
        EXPECT_THAT(seen, ElementsAre(row.character));
        EXPECT_EQ(edits, row.edits) << static_cast<unsigned>(row.character);
    }
}

TEST_F(FieldTypingTest, KeyPressChangesAndSwallows) {
    box.onKeyPress = [](KeyPress& press) { press.character = press.character == U'.' ? U',' : 0; };
    EXPECT_EQ(type(U'.'), U',');
    EXPECT_EQ(type(U'x'), U'\0');
    EXPECT_THAT(edits, ElementsAre(","));
}

TEST_F(FieldTypingTest, ASwallowedEnterBreaksNoLine) {
    box.setMultiLine(true);
    box.onKeyPress = [](KeyPress& press) { press.character = 0; };
    EXPECT_EQ(type(carriageReturn), U'\0');
    EXPECT_THAT(edits, IsEmpty());
}

TEST_F(FieldTypingTest, ALockedFieldSeesTheKeyAndKeepsItsText) {
    box.setLocked(true);
    for (const char32_t character : {char32_t{U'7'}, backspace, carriageReturn}) {
        type(character);
    }
    EXPECT_THAT(seen, ElementsAre(U'7', backspace, carriageReturn));
    EXPECT_THAT(edits, IsEmpty());
}

TEST_F(FieldTypingTest, AKeyThatBringsNoCharacterIsNotTyped) {
    EXPECT_EQ(type(0), U'\0');
    EXPECT_THAT(seen, IsEmpty());
    EXPECT_THAT(edits, IsEmpty());
}

TEST_F(FieldTypingTest, AnEditEndsTheSelectionAndOtherKeysDoNot) {
    box.selectAll();
    type(escape);
    EXPECT_TRUE(box.allSelected());
    type(U'7');
    EXPECT_FALSE(box.allSelected());
}

}  // namespace
}  // namespace velmora::toolkit
