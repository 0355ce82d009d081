#include "velmora/proposal/price_ladder_form.h"

#include <algorithm>
#include <utility>

#include "velmora/platform/runtime/numbers.h"

namespace velmora::proposal {

namespace {

namespace lay = screen::layout;

constexpr int digitsOfPieces = 8;
constexpr const char* moneyMask = "#,##0.00";

}  // namespace

PriceLadderForm::PriceLadderForm(std::string subject, const estimate::LadderBasis& basis)
    : Form("frmEscala"),
      subject_(std::move(subject)),
      basis_(basis),
      pieces_(estimate::usualPieces.begin(), estimate::usualPieces.end()) {
    setCaption("Escala de precios " + subject_);
    arrange();
    wire();
    list();
}

void PriceLadderForm::arrange() {
    cboSierra_.addItem("Precio de la pieza como está");
    cboSierra_.addItem("Con el fijo de sierra repartido en cada cantidad");
    cboSierra_.setListIndex(0);
    cboSierra_.setEnabled(basis_.parts.sawCharge != 0);
    dbgEscala_.setAccessibleName("Precios por cantidad");
    dbgEscala_.setColumns({{.field = 0, .caption = "Nº de piezas", .width = 1800, .right = true},
                           {.field = 1, .caption = "Precio por pieza", .width = 2400, .mask = moneyMask, .right = true},
                           {.field = 2, .caption = "Importe total", .width = 2400, .mask = moneyMask, .right = true}});
    cmdAnadir_.setCaption("&Añadir");
    chkCliente_.setCaption("En la &hoja del cliente");
    chkCliente_.setEnabled(false);
    cmdImprimir_.setCaption("&Imprimir");
    cmdImprimir_.setEnabled(false);
    cmdSalir_.setCaption("&Salir (ESC)");
    setLayout(
        lay::column(lay::field("Precio", cboSierra_), lay::plain(dbgEscala_).stretched(),
                    lay::row(lay::field("Otra cantidad", txtPiezas_, digitsOfPieces).number(), lay::plain(cmdAnadir_),
                             lay::space()),
                    lay::row(lay::plain(cmdImprimir_), lay::plain(chkCliente_), lay::space(), lay::plain(cmdSalir_))));
    setTabOrder({&txtPiezas_, &cmdAnadir_, &cboSierra_, &dbgEscala_, &cmdImprimir_, &chkCliente_, &cmdSalir_});
}

void PriceLadderForm::wire() {
    cboSierra_.onClick = [this] { list(); };
    cmdAnadir_.onClick = [this] { addPieces(); };
    cmdImprimir_.onClick = [this] { print(); };
    cmdSalir_.onClick = [this] { unload(); };
    onKeyDown = [this](screen::KeyDown& key) {
        // Enter takes the number over and leaves the field ready for the next one.
        if (key.key == screen::Key::enter && activeControl() == &txtPiezas_ && !txtPiezas_.text().empty()) {
            key.key = screen::Key::none;
            addPieces();
            return;
        }
        passKeysOfSideWindow(key);
    };
}

estimate::SawCharge PriceLadderForm::saw() const {
    return cboSierra_.listIndex() == 1 ? estimate::SawCharge::spread : estimate::SawCharge::asItStands;
}

std::vector<estimate::LadderStep> PriceLadderForm::steps() const {
    return estimate::priceLadder(basis_, saw(), pieces_);
}

void PriceLadderForm::list() {
    std::vector<sql::Row> rows;
    for (const estimate::LadderStep& step : steps()) {
        rows.push_back({runtime::CStr(step.pieces), step.piece, step.lot});
    }
    rows_ = sql::Recordset(sql::rowsInMemory({{"Piezas"}, {"Pieza"}, {"Importe"}}, std::move(rows)));
    dbgEscala_.bind(rows_);
}

void PriceLadderForm::addPieces() {
    const double wanted = runtime::IsNumeric(txtPiezas_.text()) ? runtime::CDbl(txtPiezas_.text()) : 0;
    txtPiezas_.setText("");
    if (wanted <= 0) {
        status().tellNote("La cantidad tiene que ser un número mayor que cero");
    } else if (std::ranges::find(pieces_, wanted) == pieces_.end()) {
        pieces_.insert(std::ranges::upper_bound(pieces_, wanted), wanted);
        list();
    }
    if (txtPiezas_.canTakeFocus()) {
        txtPiezas_.setFocus();
    }
}

void PriceLadderForm::setPrinting(std::function<void(const Wanted&)> print, bool hasCustomersSheet) {
    print_ = std::move(print);
    cmdImprimir_.setEnabled(static_cast<bool>(print_));
    chkCliente_.setEnabled(static_cast<bool>(print_) && hasCustomersSheet);
}

void PriceLadderForm::print() {
    print_({.saw = saw(), .pieces = pieces_, .onCustomersSheet = chkCliente_.checked()});
}

}  // namespace velmora::proposal
