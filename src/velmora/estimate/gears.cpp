#include "velmora/estimate/gears.h"

#include <algorithm>
#include <array>

#include "velmora/estimate/field_names.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::estimate {

namespace {

constexpr const char* none = nullptr;

/// A field of Text1 and its column of ENG; "0" for a measure that gears lack.
struct GearMeasure {
    int field;
    const char* column;
};

/// In the order of the writes, each of which recalculates.
constexpr std::array measuresOfGear{
    GearMeasure{1, "eng_z"},   GearMeasure{0, "eng_paso"}, GearMeasure{8, none},     GearMeasure{2, none},
    GearMeasure{7, "eng_d1"},  GearMeasure{3, "eng_dp"},   GearMeasure{4, "eng_di"}, GearMeasure{15, "eng_de"},
    GearMeasure{16, "eng_dm"}, GearMeasure{6, "eng_h"},    GearMeasure{11, none},    GearMeasure{17, "eng_a"},
    GearMeasure{9, "eng_b"},   GearMeasure{5, none},       GearMeasure{10, "eng_c"},
};

}  // namespace

const char* gearColumn(int field) {
    const auto* found = std::ranges::find(measuresOfGear, field, &GearMeasure::field);
    return found == measuresOfGear.end() ? none : found->column;
}

sql::Recordset gearsOf(session::Session& session, double module, double teeth) {
    return session.Connection().execute("Select * from eng where eng_modulo=" + runtime::shortest(module) +
                                        " and eng_z=" + runtime::shortest(teeth));
}

void Gears::takeOver(std::int32_t nIdEngranaje) {
    const sql::Recordset row =
        session_.Connection().execute("Select * from eng where eng_id=" + runtime::CStr(std::int64_t{nIdEngranaje}));
    if (row.eof()) {
        return;
    }
    for (const GearMeasure& measure : measuresOfGear) {
        if (measure.column == none) {
            f_.Text1(measure.field).setText("0");
        } else {
            put(f_.Text1(measure.field), row[measure.column]);
        }
    }
    put(f_.txtModulo, row["eng_modulo"]);
    presentation_.showModule();
    f_.Text1(measure::keyway).setFocus();
    // Kept K-173: only the disc is calculated. For a pitch diameter of 120 mm or less the hub's sizes and amount stay
    // as they were, including those of a larger gear chosen before. Required as it is; it determines stored amounts.
    materials_.cboMatDisco_Click();
}

}  // namespace velmora::estimate
