#include "velmora/reference/gear_rows.h"

#include <algorithm>
#include <array>
#include <string>

#include "velmora/data/schema.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/platform/session/row_writing.h"
#include "velmora/platform/sql/in_transaction.h"
#include "velmora/reference/refusal.h"
#include "velmora/reference/value_forms.h"

namespace velmora::reference {

using runtime::CDbl;
using runtime::CStr;
using session::Tipo;

std::int32_t nIdEngranaje = 0;

namespace {

/// A field of Text1 and the column it is stored in.
struct GearColumn {
    int field;
    const char* column;
};

/// The fields that search for rows.
constexpr std::array filters{
    GearColumn{gearModule, " And ENG_Modulo="},  GearColumn{gearTeeth, " And ENG_z="},
    GearColumn{gearHubDiameter, " And ENG_DM="}, GearColumn{gearBore, " And ENG_D1="},
    GearColumn{gearTotalWidth, " And ENG_A="},   GearColumn{gearFaceWidth, " And ENG_B="},
};

constexpr std::array columnsBeforeC{
    GearColumn{gearModule, "ENG_Modulo"},
    GearColumn{gearTeeth, "ENG_Z"},
    GearColumn{gearOutsideDiameter, "ENG_De"},
    GearColumn{gearPitchDiameter, "ENG_Dp"},
    GearColumn{gearInnerDiameter, "ENG_Di"},
    GearColumn{gearHubDiameter, "ENG_Dm"},
    GearColumn{gearBore, "ENG_D1"},
    GearColumn{gearTotalWidth, "ENG_A"},
    GearColumn{gearFaceWidth, "ENG_B"},
};

constexpr const char* gearChangedByAnother =
    "Otro usuario ha cambiado este engranaje desde que se mostró.\r\n¿Desea elegirlo con sus valores de ahora?";

constexpr const char* select = "select * from eng where ENG_Tipo=";
constexpr const char* noFamily = "-1";
constexpr int gearColumnWidth = 760;  ///< twips: all fourteen columns fit into the initial window

constexpr const char* gearPrefix = "ENG_";

// Chosen C-169: the button is in the first column and shows its value.
std::vector<screen::GridColumn> withButton(std::vector<screen::GridColumn> columns) {
    columns.front().button = true;
    return columns;
}

}  // namespace

std::vector<screen::GridColumn> gearColumns() {
    std::vector<sql::Column> columns;
    for (const data::ColumnDefinition& column : data::findTable("ENG")->columns) {
        columns.push_back({.name = std::string(column.name)});
    }
    return withButton(columnsWithoutPrefix(columns, gearPrefix, gearColumnWidth));
}

void GearRows::msFiltrarEngranajes(int Index) {
    const std::string& text = f_.Text1(Index).text();
    if (CDbl(text) == 0) {
        return;
    }
    const auto* filter = std::ranges::find(filters, Index, &GearColumn::field);
    // Kept K-161: leaving any other field that holds a value, such as the pitch or H, empties the list. Required as it
    // is; it determines the statements.
    const std::string clause = filter == filters.end() ? noFamily
                                                       : CStr(std::int64_t{f_.cboDobles.listIndex()}) + filter->column +
                                                             runtime::Replace(text, ",", ".");
    rs_ = session_.Connection().execute(select + clause);
    f_.dbgRs.bind(rs_);
    f_.dbgRs.setColumns(withButton(columnsWithoutPrefix(rs_.columns(), gearPrefix, gearColumnWidth)));
}

bool GearRows::choose() {
    if (!rs_.isOpen() || !rs_.hasRows()) {
        return false;
    }
    const std::int32_t id = rs_[0].toLong();
    // Differs D-167: the proposal reads the gear's values from the table, so a gear that another user has deleted or
    // changed since it was listed is not taken unnoticed.
    const session::ShownRow shown(rs_, "select * from eng where ENG_Id=" + CStr(std::int64_t{id}));
    if (!isStillTheOne(shown)) {
        rs_.requery();
        f_.dbgRs.refresh();
        return false;
    }
    nIdEngranaje = id;
    return true;
}

bool GearRows::isStillTheOne(const session::ShownRow& shown) {
    switch (shown.state(session_.Connection())) {
        case session::RowState::closed:
            refuse(screen_, "Este engranaje ya no existe: otro usuario lo ha eliminado.");
            return false;
        case session::RowState::changed:
            return screen_.show({.text = gearChangedByAnother,
                                 .icon = screen::Icon::exclamation,
                                 .buttons = screen::Buttons::yesNo,
                                 .defaultButton = 2}) == screen::Answer::yes;
        default:
            return true;
    }
}

// Kept K-162: every save inserts a new row, even with equal values; existing rows, to which proposals refer, are never
// overwritten.
bool GearRows::save() {
    if (CDbl(f_.Text1(gearHeight).text()) == 0 || CDbl(f_.Text1(gearBore).text()) == 0) {
        f_.cmdGrabar.form().status().tellNote("No se ha grabado: H y D1 no pueden ser 0");
        return false;
    }
    nIdEngranaje = 0;
    std::int32_t id = 0;
    runtime::ErrorTrap trap;
    trap([&] {
        sql::inTransaction(session_.Connection(), [&] {
            session::insertRow(session_, "ENG", [this](session::FieldList& campos) { addFields(campos); });
            id = session_.Connection().execute("Select max(ENG_ID) from ENG")[0].toLong();
            return true;
        });
        nIdEngranaje = id;
    });
    if (trap.failed()) {
        showCancelledWrite(screen_, *trap.error());
    }
    return !trap.failed();
}

void GearRows::addFields(session::FieldList& campos) const {
    campos.Add("ENG_Tipo", Tipo::number, f_.cboDobles.listIndex());
    for (const GearColumn& stored : columnsBeforeC) {
        campos.Add(stored.column, Tipo::number, f_.Text1(stored.field));
    }
    campos.Add("ENG_C", Tipo::number, std::max(0.0, CDbl(f_.Text1(gearHubWidth).text())));
    campos.Add("ENG_Paso", Tipo::number, f_.Text1(gearPitch));
    campos.Add("ENG_H", Tipo::number, f_.Text1(gearHeight));
}

}  // namespace velmora::reference
