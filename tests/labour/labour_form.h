#pragma once
// The labour form on a small workshop, and a user who works on it.

#include <string>
#include <string_view>
#include <vector>

#include "velmora/labour/frm_mano_obra.h"

#include "support/proposal_workshop.h"
#include "support/staff.h"

namespace velmora::labour {

class LabourTest : public ::testing::Test {
  protected:
    LabourTest() {
        support::addStaff(*shop.database);
        shop.database->execute("INSERT INTO DPI (DPI_Tipo) VALUES (0)");
    }

    /// The form as the main form opens it.
    frmManoObra& open(std::int32_t proposal = 1, bool modifiable = true) {
        form = std::make_unique<frmManoObra>(shop.session, shop.desk);
        form->nIdDpi = proposal;
        form->bModificable = modifiable;
        form->msCargarLineas();
        form->activate();
        return *form;
    }

    /// A line of proposal 1, on machine 11 unless told.
    void store(int idOperator, const char* minutes, const char* price, const char* amount, int machine = 11) {
        shop.database->execute(
            "INSERT INTO MoDpi (MoDpi_Dpi,MoDpi_Ope,MoDpi_Maq,MoDpi_Minutos,MoDpi_Pvp,MoDpi_Tiempo,"
            "MoDpi_Importe) VALUES (1," +
            std::to_string(idOperator) + "," + std::to_string(machine) + "," + minutes + "," + price + ",0," + amount +
            ")");
    }

    screen::TextBox& line(int index) { return form->fields().txtLinea(index); }
    LineFields& fields() { return form->fields(); }

    void goTo(screen::Control& control) { ASSERT_TRUE(form->moveFocus(control, screen::Form::Insist::yes)); }
    void set(int index, std::string_view text) {
        goTo(line(index));
        line(index).setText(text);
    }
    void press(screen::Button& button) {
        goTo(button);
        button.onClick();
    }
    void type(int index, std::string_view characters) {
        goTo(line(index));
        for (const char c : characters) {
            screen::KeyPress key{static_cast<char32_t>(c)};
            line(index).onKeyPress(key);
            if (key.character != 0) {
                const std::string before = line(index).allSelected() ? std::string() : line(index).text();
                line(index).setText(before + static_cast<char>(key.character));
            }
        }
    }
    /// A new line typed and saved.
    void add(std::string_view machine, std::string_view minutes) {
        press(fields().cmdNuevaLinea);
        set(Line::machine, machine);
        set(Line::minutes, minutes);
        press(fields().cmdGrabarLinea);
    }

    support::ProposalWorkshop shop;
    std::unique_ptr<frmManoObra> form;
};

}  // namespace velmora::labour
