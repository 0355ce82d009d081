#include "velmora/platform/toolkit/key_sheet.h"

#include <gmock/gmock.h>

#include "velmora/platform/screen/key_words.h"

namespace velmora::toolkit {
namespace {

using ::testing::Contains;
using ::testing::Not;

class FormWithKeys : public screen::Form, public screen::TellsKeys {
  public:
    FormWithKeys() : Form("frmPrueba") {
        save.setCaption("&Grabar (F5)");
        fresh.setCaption("Nueva (Ctrl+N)");
        leave.setCaption("Sa&lir (ESC)");
        width.setCaption("Ancho (B)");
        find.setAccessibleName("Buscar (F2)");
        hidden.setCaption("&Borrar (F9)");
        hidden.setVisible(false);
    }
    std::vector<screen::KeyWords> functionKeys() const override { return {{screen::Key::f7, "Ir al Nº de piezas"}}; }

    screen::Button save{*this, "save"};
    screen::Button fresh{*this, "fresh"};
    screen::Button leave{*this, "leave"};
    screen::Label width{*this, "width"};
    screen::TextBox find{*this, "find"};
    screen::Button hidden{*this, "hidden"};
};

std::vector<std::pair<std::string, std::string>> linesOf(const screen::Form& form) {
    std::vector<std::pair<std::string, std::string>> lines;
    for (const KeyLine& line : keyLines(form)) {
        lines.emplace_back(line.keys, line.words);
    }
    return lines;
}

TEST(KeySheetTest, FunctionKeysComeFirstInTheirOrderWithTheirSecondNames) {
    const auto lines = linesOf(FormWithKeys());
    ASSERT_GE(lines.size(), 3u);
    EXPECT_EQ(lines[0], std::pair(std::string("F2, Ctrl+F"), std::string("Buscar")));
    EXPECT_EQ(lines[1], std::pair(std::string("F5, Ctrl+S"), std::string("Grabar")));
    EXPECT_EQ(lines[2], std::pair(std::string("F7"), std::string("Ir al Nº de piezas")));
}

TEST(KeySheetTest, OtherKeysOfCaptionsAndLettersWithAltFollow) {
    const auto lines = linesOf(FormWithKeys());
    EXPECT_THAT(lines, Contains(std::pair("Ctrl+N", "Nueva")));
    EXPECT_THAT(lines, Contains(std::pair("ESC", "Salir")));
    EXPECT_THAT(lines, Contains(std::pair("Alt+G", "Grabar")));
    EXPECT_THAT(lines, Contains(std::pair("Alt+L", "Salir")));
    EXPECT_THAT(lines, Contains(std::pair("Mayús+F1", "Esta hoja")));
}

TEST(KeySheetTest, WhatIsNoKeyOrNotOnTheScreenIsLeftOut) {
    const auto lines = linesOf(FormWithKeys());
    EXPECT_THAT(lines, Not(Contains(std::pair("B", "Ancho"))));
    EXPECT_THAT(lines, Not(Contains(std::pair("F9", "Borrar"))));
    EXPECT_THAT(lines, Not(Contains(std::pair("Alt+B", "Borrar"))));
}

}  // namespace
}  // namespace velmora::toolkit
