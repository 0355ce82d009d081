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

/// A field with the filter of numeric keys.
class InsertionTest : public ::testing::Test {
  protected:
    InsertionTest() {
        form.setLayout(screen::layout::field("Paso", box, 8).number());
        takeNumbers(true);
    }

    void takeNumbers(bool decimals) {
        box.onKeyPress = [this, decimals](KeyPress& press) {
            const std::string text = box.allSelected() ? "" : box.text();
            const char32_t typed = press.character == U'.' ? U',' : press.character;
            const bool digit = typed >= U'0' && typed <= U'9';
            const bool comma = typed == U',' && decimals && text.find(',') == std::string::npos;
            const bool minus = typed == U'-' && text.empty();
            press.character = digit || comma || minus || typed < firstPrinting ? typed : 0;
        };
    }

    std::string insert(std::string_view text, std::string_view before = "", std::string_view after = "") {
        form.status().clearNote();
        return filterInsertion(box, {.before = before, .text = text, .after = after}).value_or("refused");
    }

    screen::Form form{"frm"};
    TextBox box{form, "box"};
};

TEST_F(InsertionTest, AFieldThatTakesLettersTakesEveryText) {
    box.onKeyPress = {};
    EXPECT_FALSE(takesNumbersOnly(box));
    EXPECT_EQ(insert("1.234,5 mm"), "1.234,5 mm");
    box.onKeyPress = [](KeyPress&) {};
    EXPECT_EQ(insert("Rueda\tde acero"), "Rueda\tde acero");
    EXPECT_EQ(form.status().note(), "");
}

TEST_F(InsertionTest, ANumberComesAsItWouldBeTyped) {
    EXPECT_TRUE(takesNumbersOnly(box));
    for (const auto& [text, number] : std::vector<std::pair<std::string, std::string>>{
             {"12.7", "12,7"}, {"1.234,5 mm", "1234,5"}, {" 38 ", "38"}, {"-4", "-4"}}) {
        EXPECT_EQ(insert(text), number);
        EXPECT_EQ(form.status().note(), "");
    }
}

TEST_F(InsertionTest, WhatIsNoNumberIsRefusedAndTold) {
    box.setText("38");
    EXPECT_EQ(insert("treinta y ocho"), "refused");
    EXPECT_EQ(form.status().note(), "«treinta y ocho» no es un número: no se ha insertado");
    EXPECT_EQ(insert("Una nota larga de otro programa\r\ny más"), "refused");
    EXPECT_EQ(form.status().note(), "«Una nota larga de otro program…» no es un número: no se ha insertado");
}

TEST_F(InsertionTest, OnlyOneNumberMayResult) {
    box.setText("12,5");
    EXPECT_EQ(insert("3", "12", ",5"), "3");
    EXPECT_EQ(insert("3,4", "12", ",5"), "refused");
    EXPECT_EQ(form.status().note(), "«3,4» no cabe en el número de este campo: no se ha insertado");
    EXPECT_EQ(insert("3,4", "12", ""), "3,4");
    EXPECT_EQ(insert("-3", "12", ",5"), "refused");
    EXPECT_EQ(insert("-3", "", ",5"), "-3");
    EXPECT_EQ(insert("5", "1.234", ",50"), "5");
}

TEST_F(InsertionTest, ASelectedTextIsReplacedWithItsComma) {
    box.setText("12,5");
    box.selectAll();
    EXPECT_EQ(insert("-3.25"), "-3,25");
}

TEST_F(InsertionTest, AFieldOfWholeNumbersTakesNoFraction) {
    takeNumbers(false);
    EXPECT_EQ(insert("38,00"), "38");
    EXPECT_EQ(insert("1.234"), "1234");
    EXPECT_EQ(form.status().note(), "");
    EXPECT_EQ(insert("12.5"), "refused");
    EXPECT_EQ(form.status().note(), "«12.5» no es un número entero: no se ha insertado");
}

TEST_F(InsertionTest, APointThatCouldSeparateAGroupIsTold) {
    EXPECT_EQ(insert("1.234"), "1,234");
    EXPECT_EQ(form.status().note(), "«1.234» se ha leído como 1,234");
}

TEST_F(InsertionTest, AMinusIsTakenWhereItCouldBeTyped) {
    box.onKeyPress = [](KeyPress& press) {
        press.character = press.character >= U'0' && press.character <= U'9' ? press.character : 0;
    };
    EXPECT_EQ(insert("-5"), "refused");
    EXPECT_EQ(insert("5"), "5");
}

TEST_F(InsertionTest, ADayIsTakenByAFieldOfDaysOnly) {
    takeNumbers(false);
    EXPECT_EQ(insert("15/01/2026"), "refused");
    form.setLayout(screen::layout::field("Fecha", box, 8));
    EXPECT_EQ(insert("15-01-2026"), "15/01/2026");
    EXPECT_EQ(insert("150126"), "150126");
    EXPECT_EQ(insert("15-01-2026", "1"), "refused");
}

TEST(RemovalTest, ATextWithoutOneOfItsPiecesIsARemoval) {
    EXPECT_TRUE(isRemoval("1.234,50", "1.24,50"));
    EXPECT_TRUE(isRemoval("1.234,50", "1.234"));
    EXPECT_TRUE(isRemoval("1.234,50", ""));
    EXPECT_TRUE(isRemoval("12", "12"));
    EXPECT_FALSE(isRemoval("12", "13"));
    EXPECT_FALSE(isRemoval("12", "123"));
    EXPECT_FALSE(isRemoval("12,34", "1.3"));
}

}  // namespace
}  // namespace velmora::toolkit
