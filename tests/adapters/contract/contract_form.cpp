#include "contract_form.h"

#include <map>

namespace velmora::test {

using namespace screen;
namespace lay = screen::layout;

std::string nameOf(Key key) {
    static const std::map<Key, std::string> names{{Key::none, "none"},   {Key::character, "character"},
                                                  {Key::enter, "enter"}, {Key::escape, "escape"},
                                                  {Key::tab, "tab"},     {Key::padDecimal, "decimal"},
                                                  {Key::comma, "comma"}, {Key::f1, "f1"},
                                                  {Key::f2, "f2"},       {Key::f3, "f3"},
                                                  {Key::f4, "f4"},       {Key::f5, "f5"},
                                                  {Key::f6, "f6"},       {Key::f7, "f7"},
                                                  {Key::f8, "f8"},       {Key::f9, "f9"}};
    return names.at(key);
}

ContractForm::ContractForm() : Form("frmContract") {
    fill();
    arrange();
    field.forEach([this](TextBox& box) { watch(box); });
    for (TextBox* box : {&memo, &framed, &inFirst, &inSecond}) {
        watch(*box);
    }
    onKeyDown = [this](KeyDown& down) {
        note("key " + nameOf(down.key));
        if (keyHandler) {
            keyHandler(down);
        }
    };
    save.onClick = [this] { note("click save"); };
    check.onClick = [this] { note(check.checked() ? "ticked" : "unticked"); };
    bar.onButtonClick = [this](int item) { note("item " + std::to_string(item)); };
    grid.onButtonClick = [this](int column) { note("cell " + std::to_string(column)); };
    grid.onKeyDown = [this](KeyDown& down) { note("gridkey " + nameOf(down.key)); };
}

void ContractForm::fill() {
    setCaption("Contrato");
    memo.setMultiLine(true);
    frame.setCaption("Marco");
    first.setCaption("Primero");
    second.setCaption("Segundo");
    save.setCaption("&Grabar");
    check.setCaption("Acoplamiento");
    bar.setItems({{"Nuevo", {}}, {"", {}}, {"Visualizar", {}}});
    for (const char* entry : {"Broca", "H7", "H5"}) {
        list.addItem(entry);
    }
    list.setListIndex(0);
    grid.setColumns({{.field = 0, .caption = "Id"},
                     {.field = 1, .caption = "Oculta", .visible = false},
                     {.field = 1, .caption = "Ver", .button = true}});
    std::vector<sql::Row> rows;
    for (int i = 0; i < 5; ++i) {
        rows.push_back({i + 1, "Ver"});
    }
    sql::Recordset set(sql::rowsInMemory({{"ID"}, {"VER"}}, rows));
    grid.bind(set);
    moves_ = set.onMoveComplete([this] { note("row " + std::to_string(*grid.recordset().position())); });
}

void ContractForm::arrange() {
    setLayout(
        lay::column(lay::plain(bar),
                    lay::row(lay::field("A", field(0), 8), lay::field("B", field(1), 8), lay::field("C", field(2), 8)),
                    lay::field("Notas", memo, 20).tall(3), lay::field("Lista", list, 12), lay::plain(check),
                    lay::group(frame, lay::field("D", framed, 8)),
                    lay::takeTurns(lay::group(first, lay::field("E", inFirst, 8)),
                                   lay::group(second, lay::field("F", inSecond, 8))),
                    lay::plain(grid), lay::plain(save)));
    setTabOrder({&field(0), &field(1), &field(2), &memo, &list, &check, &framed, &inFirst, &inSecond, &grid, &save});
}

void ContractForm::watch(TextBox& box) {
    box.onGotFocus = [this, &box] { note("got " + box.fullName()); };
    box.onLostFocus = [this, &box] { note("lost " + box.fullName()); };
    box.onChange = [this, &box] { note("change " + box.fullName() + "=" + box.text()); };
    box.onKeyPress = [this](KeyPress& press) { note("press " + std::to_string(static_cast<long>(press.character))); };
}

}  // namespace velmora::test
