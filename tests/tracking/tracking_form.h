#pragma once
// The tracking form on a small workshop, and a user who works on it.

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/tracking/frm_seguimiento.h"

#include "support/proposal_workshop.h"
#include "support/watched_orders.h"

namespace velmora::tracking {

using support::WatchedOrders;

class TrackingTest : public ::testing::Test {
  protected:
    /// The form as a test of its own opens it: with an empty tag.
    frmSeguimiento& open() {
        form = std::make_unique<frmSeguimiento>(shop.session, shop.desk);
        form->activate();
        return *form;
    }
    TrackingFields& fields() { return form->fields(); }

    /// A row of DPI with all that the panel needs; `columns` and `values` add to it.
    void store(const std::string& columns = "", const std::string& values = "") {
        shop.database->execute(
            "INSERT INTO DPI (DPI_CodCliente,DPI_NomCliente,DPI_ImpMat,DPI_ImpMO,DPI_ImpTS,DPI_ImpVA,DPI_ImpTP,"
            "DPI_Unidades,DPI_Importe" +
            (columns.empty() ? "" : "," + columns) +
            ") VALUES (1001,N'TALLERES NORTE SL',10.5,20,0,1.25,1234.5,3,3703.5" +
            (values.empty() ? "" : "," + values) + ")");
    }

    /// Chooses all states and runs the filter.
    void listAll() {
        fields().cboFiltroHistorico.setListIndex(allStates);
        press(fields().cmdfiltro);
    }

    void goTo(screen::Control& control) { ASSERT_TRUE(form->moveFocus(control, screen::Form::Insist::yes)); }
    void set(screen::TextBox& box, std::string_view text) {
        goTo(box);
        box.setText(text);
    }
    void press(screen::Button& button) {
        goTo(button);
        shop.attempt([&] { button.onClick(); });
    }
    /// Key by key; the keys that come through stand in the field.
    void type(screen::TextBox& box, std::string_view characters) {
        goTo(box);
        for (const char c : characters) {
            screen::KeyPress key{static_cast<char32_t>(c)};
            box.onKeyPress(key);
            if (key.character != 0) {
                const std::string before = box.allSelected() ? std::string() : box.text();
                box.setText(before + static_cast<char>(key.character));
            }
        }
    }
    void gridKey(screen::Key key) {
        screen::KeyDown event{key};
        shop.attempt([&] { fields().dbgDPI.onKeyDown(event); });
    }
    void cell(int column) {
        shop.attempt([&] { fields().dbgDPI.onButtonClick(column); });
    }

    std::string criterion(int index) { return fields().txtCriterio(index).text(); }
    std::string detail(int index) { return fields().txtPesu(index).text(); }
    std::string measure(int index) { return fields().Text1(index).text(); }
    /// The numbers in the list, as shown.
    std::vector<std::string> listed() {
        std::vector<std::string> numbers;
        for (std::size_t row = 0; row < fields().dbgDPI.rowCount(); ++row) {
            numbers.push_back(fields().dbgDPI.cellText(row, 1));
        }
        return numbers;
    }
    /// What follows the columns in the last statement of the list.
    std::string lastCondition() {
        const std::vector<std::string> statements = shop.connection.logged("dpi.* from DPI ");
        if (statements.empty()) {
            return "no statement";
        }
        const std::string& last = statements.back();
        constexpr std::string_view end = "dpi.* from DPI ";
        return last.substr(last.find(end) + end.size());
    }

    support::ProposalWorkshop shop;
    std::unique_ptr<frmSeguimiento> form;
};

}  // namespace velmora::tracking
