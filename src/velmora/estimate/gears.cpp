#include "velmora/estimate/gears.h"

#include <array>

#include "velmora/estimate/field_names.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::estimate {

namespace {

constexpr const char* none = nullptr;

/// A field of Text1 and its column of ENG; "0" for a measure that gears lack.
struct Measure {
    int field;
    const char* column;
};

/// In the order of the writes, each of which recalculates.
constexpr std::array measures{
    Measure{1, "eng_z"},  Measure{0, "eng_paso"}, Measure{8, none},      Measure{2, none},      Measure{7, "eng_d1"},
    Measure{3, "eng_dp"}, Measure{4, "eng_di"},   Measure{15, "eng_de"}, Measure{16, "eng_dm"}, Measure{6, "eng_h"},
    Measure{11, none},    Measure{17, "eng_a"},   Measure{9, "eng_b"},   Measure{5, none},      Measure{10, "eng_c"},
};

}  // namespace

void Gears::takeOver(std::int32_t nIdEngranaje) {
    const sql::Recordset row =
        session_.Connection().execute("Select * from eng where eng_id=" + runtime::CStr(std::int64_t{nIdEngranaje}));
    if (row.eof()) {
        return;
    }
    for (const Measure& measure : measures) {
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
