#pragma once
// The price ladder: what a piece and a lot cost for the usual numbers of pieces and for any other, on the screen and on
// paper.

#include <functional>
#include <string>
#include <vector>

#include "velmora/estimate/price_ladder.h"
#include "velmora/platform/desk.h"
#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/screen/form.h"

namespace velmora::proposal {

class PriceLadderForm : public screen::Form {
  public:
    /// What is to be printed.
    struct Wanted {
        estimate::SawCharge saw;
        std::vector<double> pieces;
        bool onCustomersSheet;  ///< below the figures of the customer's sheet; otherwise on a sheet of its own
    };

    /// `subject` names the proposal.
    PriceLadderForm(std::string subject, const estimate::LadderBasis& basis);

    /// Enables the printing; the customer's sheet only for a proposal that is stored as it stands. To be set before the
    /// form is shown.
    void setPrinting(std::function<void(const Wanted&)> print, bool hasCustomersSheet);

    const std::string& subject() const { return subject_; }
    /// The steps on show.
    std::vector<estimate::LadderStep> steps() const;

  private:
    void arrange();
    void wire();
    void list();
    void addPieces();
    void print();
    estimate::SawCharge saw() const;

    std::string subject_;
    estimate::LadderBasis basis_;
    std::vector<double> pieces_;
    sql::Recordset rows_;
    std::function<void(const Wanted&)> print_;
    screen::ComboBox cboSierra_{*this, "cboSierra"};
    screen::DataGrid dbgEscala_{*this, "dbgEscala"};
    screen::TextBox txtPiezas_{*this, "txtPiezas"};
    screen::Button cmdAnadir_{*this, "cmdAnadir"};
    screen::CheckBox chkCliente_{*this, "chkCliente"};
    screen::Button cmdImprimir_{*this, "cmdImprimir"};
    screen::Button cmdSalir_{*this, "cmdSalir"};
};

}  // namespace velmora::proposal
