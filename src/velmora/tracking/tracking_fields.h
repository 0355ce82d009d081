#pragma once
// The controls of the tracking form and its list, shared by the classes of the form.

#include "velmora/platform/screen/control.h"
#include "velmora/platform/screen/control_array.h"
#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/screen/form.h"
#include "velmora/platform/sql/recordset.h"

namespace velmora::tracking {

/// What each field of txtCriterio filters: from and to.
enum Criterion : int { customerFrom = 0, customerTo, dateFrom, dateTo, numberFrom, numberTo };

/// The entries of cboFiltroHistorico.
enum State : int { onlyAccepted = 0, onlyPending, allStates };

/// The value of the current row that each field of txtPesu shows.
enum Detail : int {
    customerCode = 0,
    customerName,
    customerReference,
    customerOrder,
    orderDate,
    deliveryDate,
    materialAmount,  ///< euros, like all amounts
    labourAmount,
    subcontractedAmount,
    otherAmount,
    piecePrice,
    pieces,
    totalAmount,
};

struct TrackingFields {
    explicit TrackingFields(screen::Form& owner) : form(owner) {}

    screen::Form& form;

    screen::Frame fraFiltros{form, "fraFiltros"};
    screen::ControlArray<screen::TextBox> txtCriterio{form, "txtCriterio", {{0, 5}}};
    screen::ComboBox cboTipoPre{form, "cboTipoPre"};
    screen::ComboBox cboFiltroHistorico{form, "cboFiltroHistorico"};
    screen::CheckBox chkAcopla{form, "chkAcopla"};
    screen::Button cmdfiltro{form, "cmdfiltro"};

    screen::Frame fraMedidas{form, "fraMedidas"};
    screen::ControlArray<screen::TextBox> Text1{form, "Text1", {{0, 3}, {7, 8}}};
    screen::Button XPButton4{form, "XPButton4"};  ///< searches by measures

    screen::DataGrid dbgDPI{form, "dbgDPI"};

    screen::Frame fraDatos{form, "fraDatos"};
    screen::ControlArray<screen::TextBox> txtPesu{form, "txtPesu", {{0, 12}}};

    screen::Button XPButton1{form, "XPButton1"};  ///< accepts the current proposal
    screen::Button XPButton2{form, "XPButton2"};  ///< shows its work order
    screen::Button cmdExcel{form, "cmdExcel"};
    screen::Button XPButton3{form, "XPButton3"};  ///< closes the form
    screen::ControlArray<screen::Label> Label1{form, "Label1", {{10, 10}}};
    screen::Label lblTeclas{form, "lblTeclas"};  ///< caption with the keys of the list

    /// The rows of the list; the form listens to its moves.
    sql::ListenedRecordset rsDpi;
    /// The row that the panel shows, with its values at that moment. Closed while the panel does not, or not
    /// completely, show the current row. Each row is a new set, so a copy of an earlier one keeps its row.
    sql::Recordset shown;
};

}  // namespace velmora::tracking
