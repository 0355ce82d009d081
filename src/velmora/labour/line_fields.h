#pragma once
// The controls of the labour form, shared by its classes.

#include <cstdint>
#include <string>

#include "velmora/platform/screen/control.h"
#include "velmora/platform/screen/control_array.h"
#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/screen/form.h"

namespace velmora::labour {

/// Contents of the fields of txtLinea. 3 and 4 are cleared with the others and have no other use.
enum Line : int {
    machine = 0,      ///< MAQ_ID
    machineName = 1,  ///< shown
    section = 2,      ///< display only
    hourPrice = 5,    ///< euros per hour; the tag holds the operator's part of the list's entry
    minutes = 6,
    amount = 7,       ///< euros; display only
    minutePrice = 8,  ///< euros per minute to 4 decimals; display only, never stored
};

struct LineFields {
    explicit LineFields(screen::Form& owner) : form(owner) {}

    screen::Form& form;

    screen::ControlArray<screen::TextBox> txtLinea{form, "txtLinea", {{0, 8}}};
    screen::ComboBox cboOperarios{form, "cboOperarios"};
    /// Parallel to cboOperarios, entry by entry: the operator's id under "000", a bar, the price per hour. Never
    /// visible.
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

    /// Puts the same text into the fields `from` to `to`.
    void put(int from, int to, const char* text) const {
        for (int i = from; i <= to; ++i) {
            txtLinea(i).setText(text);
        }
    }

    /// Ends the editing of a line: the actions are shown again and the line is disabled.
    void browse() {
        fraAcciones.setVisible(true);
        fraLinea.setEnabled(false);
    }
};

/// The operator of an entry of cboOperPvp; 0 when its first three characters are not a number. Kept K-103: three
/// characters hold the id, so 1005 reads as 100. Required as it is; it determines stored operators.
std::int32_t operatorOf(const std::string& entry);

}  // namespace velmora::labour
