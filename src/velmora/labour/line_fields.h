#pragma once
// The controls of the labour form, which its concerns share.

#include <cstdint>
#include <string>

#include "velmora/platform/screen/control.h"
#include "velmora/platform/screen/control_array.h"
#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/screen/form.h"

namespace velmora::labour {

/// What each field of txtLinea holds. 3 and 4 are cleared with the others and serve nothing else.
enum Line : int {
    machine = 0,      ///< MAQ_ID
    machineName = 1,  ///< shown
    section = 2,      ///< shown
    hourPrice = 5,    ///< euros per hour; the tag holds the operator's part of the list's entry
    minutes = 6,
    amount = 7,       ///< euros, shown
    minutePrice = 8,  ///< euros per minute to 4 decimals, shown and never stored
};

struct LineFields {
    explicit LineFields(screen::Form& owner) : form(owner) {}

    screen::Form& form;

    screen::ControlArray<screen::TextBox> txtLinea{form, "txtLinea", {{0, 8}}};
    screen::ComboBox cboOperarios{form, "cboOperarios"};
    /// Beside cboOperarios, entry by entry: the operator's id under "000", a bar, the price per hour. Never seen.
    screen::ComboBox cboOperPvp{form, "cboOperPvp"};

    screen::Frame fraAcciones{form, "fraAcciones"};
    screen::Button cmdNuevaLinea{form, "cmdNuevaLinea"};
    screen::Button cmdEditarLinea{form, "cmdEditarLinea"};
    screen::Button cmdEliminarLinea{form, "cmdEliminarLinea"};

    screen::Frame fraLinea{form, "fraLinea"};
    screen::Button cmdBuscarMaquina{form, "cmdBuscarMaquina"};
    screen::Button cmdGrabarLinea{form, "cmdGrabarLinea"};
    screen::Button cmdCancelar{form, "cmdCancelar"};

    screen::DataGrid DataGrid1{form, "DataGrid1"};
    screen::Label Label2{form, "Label2"};  ///< the sum of the lines
    screen::Button cmdSalir{form, "cmdSalir"};

    /// The same text into the fields of a range.
    void put(int from, int to, const char* text) const {
        for (int i = from; i <= to; ++i) {
            txtLinea(i).setText(text);
        }
    }

    /// Ends the entry of a line: the actions come back and the line can no longer be typed in.
    void browse() {
        fraAcciones.setVisible(true);
        fraLinea.setEnabled(false);
    }
};

/// The operator of an entry of cboOperPvp; 0 when its first three characters are no number.
/// Kept K-103: three characters hold the id, so that 1005 reads as 100; the lists of older versions and what they
/// stored are made so.
std::int32_t operatorOf(const std::string& entry);

}  // namespace velmora::labour
