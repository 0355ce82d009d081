#include "velmora/estimate/double_sprockets.h"

#include <algorithm>
#include <array>

#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::estimate {

namespace {

/// A field of Text1 and the column of PDM that fills it.
struct Measure {
    int field;
    const char* column;
};

constexpr std::array measuresBeforeHeight{
    Measure{0, "PDM_Paso"}, Measure{8, "PDM_AC"}, Measure{2, "PDM_Rodillo"}, Measure{7, "PDM_d2"},
    Measure{3, "PDM_dp"},   Measure{4, "PDM_DF"}, Measure{15, "PDM_de"},     Measure{16, "PDM_dm"},
    Measure{17, "PDM_a"},   Measure{5, "PDM_b1"},
};

/// A field of a sketch and the field of Text1 that it repeats.
struct Repeated {
    int sketch;
    int field;
};

constexpr std::array onVariableSketch{Repeated{0, 17}, Repeated{1, 10}, Repeated{2, 9}, Repeated{3, 14},
                                      Repeated{4, 18}, Repeated{5, 16}, Repeated{6, 15}};
constexpr std::array onDoubleSketch{Repeated{1, 16}, Repeated{3, 17}, Repeated{4, 9}, Repeated{5, 10}};
constexpr std::array onTripleSketch{Repeated{1, 16}, Repeated{8, 10}, Repeated{9, 9}, Repeated{10, 17}};

template <std::size_t N>
void repeat(const FieldMap& f, const std::array<Repeated, N>& fields, const ControlArray<TextBox>& sketch) {
    for (const Repeated& repeated : fields) {
        sketch(repeated.sketch).setText(f.Text1(repeated.field).text());
    }
}

double column(const sql::Recordset& row, const char* name) {
    return row[name].toDouble();
}

}  // namespace

bool DoubleSprockets::Text1_LostFocus(int Index) {
    switch (Index) {
        case 1:
            return lookUp();
        case 10:
            hubWidthChanged();
            return true;
        case 11:
            gapChanged();
            return true;
        case 16:
            hubDiameterChanged();
            return true;
        default:
            return true;
    }
}

bool DoubleSprockets::lookUp() {
    const std::string teeth = f_.Text1(1).text();
    rsPiñonDoble_ = session_.Connection().execute(
        "Select * from PDM where PDm_tipo = " + runtime::CStr(std::int64_t{f_.cboDobles.listIndex()}) +
        " AND PDm_z=" + runtime::Replace(teeth, ",", "."));
    if (rsPiñonDoble_.eof()) {
        rsPiñonDoble_ = {};
        screen_.show({.text = "Error: No Existen datos para piñon doble de Z " + teeth});
        return false;
    }
    const sql::Recordset& row = rsPiñonDoble_;
    const bool triple = data::isTriple(f_.type());
    const double b2 = column(row, "PDM_b2");
    const double x = column(row, "PDM_x");
    const double rim = triple ? ((b2 - x) / 2) * 3 + x * 2 : b2;
    for (const Measure& measure : measuresBeforeHeight) {
        put(f_.Text1(measure.field), row[measure.column]);
    }
    put(f_.Text1(6), round2((column(row, "PDM_de") - column(row, "PDM_DF")) / 2));
    put(f_.Text1(10), round2(column(row, "PDM_a") - b2));
    put(f_.Text1(11), row["PDM_x"]);
    put(f_.Text1(9), rim);
    spreadDouble(rim);
    if (data::isDoubleDisc(f_.type())) {
        voidHub();
    }
    if (triple) {
        spreadTriple(rim);
    }
    return true;
}

void DoubleSprockets::spreadDouble(double rim) {
    const sql::Recordset& row = rsPiñonDoble_;
    f_.Label1(4).setCaption("Llanta (B2)");
    put(f_.txtPDM(0), row["PDM_de"]);
    put(f_.txtPDM(1), row["PDM_dm"]);
    put(f_.txtPDM(2), round2((column(row, "PDM_de") - column(row, "PDM_DF")) / 2 + column(row, "PDM_h1")));
    f_.txtPDM(3).setText(f_.Text1(17).text());
    put(f_.txtPDM(4), rim);
    put(f_.txtPDM(5), round2(column(row, "PDM_a") - rim));
    put(f_.txtPDM(6), row["PDM_b1"]);
    put(f_.txtPDM(8), row["PDM_b1"]);
    put(f_.txtPDM(7), row["PDM_x"]);
}

void DoubleSprockets::voidHub() {
    f_.Text1(16).setText("0");
    f_.Text1(10).setText("0");
    f_.Text1(17).setText(f_.Text1(9).text());
}

void DoubleSprockets::spreadTriple(double rim) {
    const sql::Recordset& row = rsPiñonDoble_;
    const double hubWidth = round2(column(row, "PDM_a") - column(row, "PDM_b2"));
    f_.Label1(4).setCaption("Llanta (B3)");
    put(f_.txtTriple(0), row["PDM_de"]);
    put(f_.txtTriple(1), row["PDM_dm"]);
    put(f_.txtTriple(2), round2((column(row, "PDM_de") - column(row, "PDM_DF")) / 2 + column(row, "PDM_h1")));
    for (const int i : {3, 5, 7}) {
        put(f_.txtTriple(i), row["PDM_b1"]);
    }
    for (const int i : {4, 6}) {
        put(f_.txtTriple(i), row["PDM_x"]);
    }
    put(f_.txtTriple(8), hubWidth);
    put(f_.txtTriple(9), rim);
    put(f_.txtTriple(10), hubWidth + rim);
    f_.Text1(17).setText(f_.txtTriple(10).text());
}

void DoubleSprockets::hubWidthChanged() {
    // Kept K-174: only the triple sprocket goes by the triple's sketch here and at the gap; a triple disc goes with the
    // doubles: leaving one of the two fields gives it two rims and one gap. A load ends with the widths stored.
    const bool triple = f_.type() == data::tripleSprocket;
    const TextBox& rim = triple ? f_.txtTriple(9) : f_.txtPDM(4);
    TextBox& total = triple ? f_.txtTriple(10) : f_.txtPDM(3);
    TextBox& hub = triple ? f_.txtTriple(8) : f_.txtPDM(5);
    put(f_.Text1(17), round2(number(f_.Text1(10)) + number(rim)));
    total.setText(f_.Text1(17).text());
    hub.setText(f_.Text1(10).text());
}

void DoubleSprockets::gapChanged() {
    f_.txtPDM(7).setText(f_.Text1(11).text());
    if (f_.type() == data::tripleSprocket) {
        put(f_.txtPDM(4), number(f_.txtTriple(3)) * 3 + number(f_.txtTriple(4)) * 2);
    } else {
        put(f_.txtPDM(4), number(f_.txtPDM(6)) + number(f_.txtPDM(8)) + number(f_.txtPDM(7)));
    }
    f_.Text1(9).setText(f_.txtPDM(4).text());
    put(f_.Text1(17), round2(number(f_.Text1(10)) + number(f_.txtPDM(4))));
    f_.txtPDM(5).setText(f_.Text1(10).text());
    f_.txtPDM(3).setText(f_.Text1(17).text());
    if (data::isDoubleDisc(f_.type())) {
        voidHub();
    }
}

void DoubleSprockets::hubDiameterChanged() {
    f_.txtPDM(1).setText(f_.Text1(16).text());
    f_.txtTriple(1).setText(f_.Text1(16).text());
}

void DoubleSprockets::msCalcularDobleVariable() {
    // Chosen C-007: it acts for the variable products alone, the pulley once its second hub is known; on any other type
    // it would write its total over theirs.
    if (f_.bCargandoPropuesta || !f_.secondHubIsKnown()) {
        return;
    }
    f_.txtDCV(2).setText(f_.Text1(9).text());
    f_.txtDCV(1).setText(f_.Text1(10).text());
    f_.txtDCV(3).setText(f_.Text1(14).text());
    put(f_.txtDCV(0), round2(numberOrZero(f_.Text1(10)) + numberOrZero(f_.Text1(9)) + numberOrZero(f_.Text1(14))));
    f_.txtDCV(5).setText(f_.Text1(16).text());
    f_.txtDCV(4).setText(f_.Text1(18).text());
    f_.txtDCV(6).setText(f_.Text1(15).text());
    f_.Text1(17).setText(f_.txtDCV(0).text());
}

// Differs D-005: the figures of the variable sketch are those of the fields beside them, in a load too, where the
// calculation that writes them is off; they would be another proposal's under a drawing to scale.
void DoubleSprockets::repeatOnVariableSketch() {
    if (data::isVariable(f_.type())) {
        repeat(f_, onVariableSketch, f_.txtDCV);
    }
}

void DoubleSprockets::variableMeasureChanged(int field) {
    if (std::ranges::find(onVariableSketch, field, &Repeated::field) != onVariableSketch.end()) {
        repeatOnVariableSketch();
    }
}

void DoubleSprockets::repeatOnMultipleSketches() {
    repeat(f_, onDoubleSketch, f_.txtPDM);
    repeat(f_, onTripleSketch, f_.txtTriple);
}

}  // namespace velmora::estimate
