#include "velmora/reference/chain_rows.h"

#include <array>
#include <string>

#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/session/deed.h"
#include "velmora/platform/session/row_writing.h"
#include "velmora/platform/session/shown_row.h"
#include "velmora/platform/sql/in_transaction.h"
#include "velmora/reference/refusal.h"
#include "velmora/reference/value_forms.h"

namespace velmora::reference {

using runtime::CStr;
using runtime::Format;
using session::Tipo;
using session::Written;

namespace {

constexpr const char* rowChangedByAnother =
    "Otro usuario ha cambiado este registro desde que se mostró.\r\n¿Desea grabar encima de sus cambios?";
constexpr const char* rowIsGone = "Este registro ya no existe: otro usuario lo ha eliminado.\r\nNo se ha grabado nada.";

// Width of the grid's columns in twips.
constexpr int chainColumnWidth = 850;
constexpr int titleWidth = 2600;

/// A field of Text1 and the column it is stored in.
struct ChainColumn {
    int field;
    const char* column;
};

/// In the order of the write statement.
constexpr std::array chainColumns{
    ChainColumn{chainTeeth, "PDM_Z"},
    ChainColumn{chainDe, "PDM_De"},
    ChainColumn{chainDp, "PDM_Dp"},
    ChainColumn{chainDf, "PDM_Df"},
    ChainColumn{chainDm, "PDM_Dm"},
    ChainColumn{chainD2, "PDM_D2"},
    ChainColumn{chainA, "PDM_A"},
    ChainColumn{chainB1, "PDM_B1"},
    ChainColumn{chainB2, "PDM_B2"},
    ChainColumn{chainX, "PDM_X"},
    ChainColumn{chainPitch, "PDM_Paso"},
    ChainColumn{chainInnerWidth, "PDM_AC"},
    ChainColumn{chainRoller, "PDM_Rodillo"},
    ChainColumn{chainH1, "PDM_H1"},
};

/// A row written by other programs may contain nulls.
double numberOrZero(const sql::Value& value) {
    return value.isNull() ? 0 : value.toDouble();
}

}  // namespace

ChainRows::ChainRows(ChainFields& fields, NewRowButton& newRow, session::Session& session, screen::Screen& screen,
                     const system::Clock& clock)
    : f_(fields), newRow_(newRow), session_(session), screen_(screen), clock_(clock) {
    rs_.onMoveComplete = [this] { rs_MoveComplete(); };
}

bool ChainRows::load() {
    rs_ = session_.Connection().execute("Select * from PDM where PDM_Tipo = " +
                                        CStr(std::int64_t{f_.cboDobles.listIndex()}));
    f_.dbgRs.bind(*rs_);
    shapeGrid();
    return rs_->hasRows();
}

void ChainRows::shapeGrid() {
    std::vector<screen::GridColumn> shaped = columnsWithoutPrefix(rs_->columns(), "PDM_", chainColumnWidth);
    constexpr std::size_t title = 2;
    for (std::size_t i = 0; i < title; ++i) {
        shaped[i].visible = false;
    }
    shaped[title].right = false;
    shaped[title].width = titleWidth;
    f_.dbgRs.setColumns(std::move(shaped));
}

void ChainRows::rs_MoveComplete() {
    if (!rs_->eof() && !rs_->bof()) {
        show();
    }
}

// Kept K-164: values are shown, used and stored again with two decimals: a pitch of 9,525 becomes 9,53 once its row is
// saved, and the pitch diameter of a new row is computed from what is shown. Required as it is; it determines stored
// values.
void ChainRows::show() {
    const sql::Recordset& row = *rs_;
    const auto put = [&](int field, double value) { f_.Text1(field).setText(Format(value, valueMask)); };
    for (const ChainColumn& stored : chainColumns) {
        put(stored.field, numberOrZero(row[stored.column]));
    }
    // Kept K-163: X and Df are computed for display, whatever is stored. X is B2 − b1 here, but the gap between the
    // rims in the price of a double; rows saved by this form contain B2 − b1.
    put(chainX, numberOrZero(row["PDM_b2"]) - numberOrZero(row["PDM_b1"]));
    put(chainDf, numberOrZero(row["PDM_Dp"]) - numberOrZero(row["PDM_Rodillo"]));
    newRow_.disableHead();
}

void ChainRows::save() {
    std::optional<std::string> written;
    runtime::ErrorTrap trap;
    trap([&] { written = !newRow_.isAdding() && f_.Frame1.enabled() ? update() : insert(); });
    if (trap.failed()) {
        showCancelledWrite(screen_, *trap.error());
        return;
    }
    if (!written) {
        return;
    }
    f_.cmdGrabar.form().status().tellDeed(session::deedNow("Valores grabados", clock_));
    screen_.show({.text = "Datos grabados satisfactoriamente", .icon = screen::Icon::information});
    rs_->requery();
    rs_->find("PDM_ID = " + *written);
    shapeGrid();
    if (newRow_.isAdding()) {
        newRow_.end();
    }
}

std::optional<std::string> ChainRows::insert() {
    std::string id;
    sql::inTransaction(session_.Connection(), [&] {
        session::insertRow(session_, "PDM", [this](session::FieldList& campos) { addFields(campos); });
        id = session_.Connection().execute("Select max(PDM_ID) from PDM")[0].toText();
        return true;
    });
    return id;
}

std::optional<std::string> ChainRows::update() {
    // Chosen C-163: without a current row the write is refused with the error of a set without a row.
    const std::string id = (*rs_)["PDM_ID"].toText();
    const session::ShownRow shown(*rs_, "Select * from PDM where PDM_ID = " + id);
    // Differs D-166: the row is read again in the transaction of its write: a row that another user has deleted is not
    // written, a changed one only after a confirmation.
    const Written written =
        session::writeChecked(session_.Connection(), screen_, clock_,
                              {.look = [&] { return shown.state(session_.Connection()); },
                               .write =
                                   [&] {
                                       session::updateRow(session_, "PDM", " Where PDM_ID = " + id,
                                                          [this](session::FieldList& campos) { addFields(campos); });
                                       return true;
                                   },
                               .question = rowChangedByAnother});
    if (written == Written::closed) {
        refuse(screen_, rowIsGone);
    }
    return written == Written::yes ? std::optional(id) : std::nullopt;
}

void ChainRows::addFields(session::FieldList& campos) const {
    campos.Add("PDM_Tipo", Tipo::number, f_.cboDobles.listIndex());
    campos.Add(
        "PDM_Titulo", Tipo::text,
        "Piñon " + f_.cboDobles.text() + " Doble Z" + CStr(std::int64_t{runtime::CInt(f_.Text1(chainTeeth).text())}));
    for (const ChainColumn& stored : chainColumns) {
        campos.Add(stored.column, Tipo::number, f_.Text1(stored.field));
    }
}

}  // namespace velmora::reference
