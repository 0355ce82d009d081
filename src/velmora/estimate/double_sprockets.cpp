#include "velmora/estimate/double_sprockets.h"

#include <algorithm>
#include <array>

#include "velmora/estimate/field_names.h"
#include "velmora/estimate/rules.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::estimate {

namespace {

/// A field of Text1 and its column of PDM.
struct Measure {
    int field;
    const char* column;
};

constexpr std::array measuresBeforeHeight{
    Measure{0, "PDM_Paso"}, Measure{8, "PDM_AC"}, Measure{2, "PDM_Rodillo"}, Measure{7, "PDM_d2"},
    Measure{3, "PDM_dp"},   Measure{4, "PDM_DF"}, Measure{15, "PDM_de"},     Measure{16, "PDM_dm"},
    Measure{17, "PDM_a"},   Measure{5, "PDM_b1"},
};

/// A field of a sketch and the field of Text1 that it shows.
struct Repeated {
    int sketch;
    int field;
};

constexpr std::array onVariableSketch{Repeated{variableSketch::totalWidth, measure::totalWidth},
                                      Repeated{variableSketch::hubWidth, measure::hubWidth},
                                      Repeated{variableSketch::rim, measure::rim},
                                      Repeated{variableSketch::secondHubWidth, measure::secondHubWidth},
                                      Repeated{variableSketch::secondHubDiameter, measure::secondHubDiameter},
                                      Repeated{variableSketch::hubDiameter, measure::hubDiameter},
                                      Repeated{variableSketch::exterior, measure::exterior}};
constexpr std::array onDoubleSketch{
    Repeated{doubleSketch::hubDiameter, measure::hubDiameter}, Repeated{doubleSketch::totalWidth, measure::totalWidth},
    Repeated{doubleSketch::rim, measure::rim}, Repeated{doubleSketch::hubWidth, measure::hubWidth}};
constexpr std::array onTripleSketch{
    Repeated{tripleSketch::hubDiameter, measure::hubDiameter}, Repeated{tripleSketch::hubWidth, measure::hubWidth},
    Repeated{tripleSketch::rim, measure::rim}, Repeated{tripleSketch::totalWidth, measure::totalWidth}};

template <std::size_t N>
void repeat(const FieldMap& f, const std::array<Repeated, N>& fields, const ControlArray<TextBox>& sketch) {
    for (const Repeated& repeated : fields) {
        sketch(repeated.sketch).setText(f.Text1(repeated.field).text());
    }
}

double column(const sql::Recordset& row, const char* name) {
    return row[name].toDouble();
}

bool isDiscOfTwoRims(const data::ProductType& type) {
    return type.shape == data::ProductShape::twoRims && !type.hasHub();
}

/// Whether hub width and gap are computed on the sketch of three rims.
// Kept K-174: only the triple sprocket is treated as a triple; a triple disc is treated as a double: leaving one of the
// two fields gives it two rims and one gap. Required as it is; it determines stored widths. A load ends with the widths
// stored.
bool goesByTripleSketch(const data::ProductType& type) {
    return type.shape == data::ProductShape::threeRims && type.hasHub();
}

}  // namespace

sql::Recordset chainValues(session::Session& session, int chain, const std::string& teeth) {
    return session.Connection().execute("Select * from PDM where PDm_tipo = " + runtime::CStr(std::int64_t{chain}) +
                                        " AND PDm_z=" + runtime::Replace(teeth, ",", "."));
}

const char* chainColumn(int field) {
    const auto* found = std::ranges::find(measuresBeforeHeight, field, &Measure::field);
    return found == measuresBeforeHeight.end() ? nullptr : found->column;
}

bool DoubleSprockets::Text1_LostFocus(int Index) {
    switch (Index) {
        case measure::teeth:
            return lookUp();
        case measure::hubWidth:
            hubWidthChanged();
            return true;
        case measure::gap:
            gapChanged();
            return true;
        case measure::hubDiameter:
            hubDiameterChanged();
            return true;
        default:
            return true;
    }
}

bool DoubleSprockets::lookUp() {
    const std::string teeth = f_.Text1(measure::teeth).text();
    rsPiñonDoble_ = chainValues(session_, f_.cboDobles.listIndex(), teeth);
    if (rsPiñonDoble_.eof()) {
        rsPiñonDoble_ = {};
        screen_.show({.text = "Error: No Existen datos para piñon doble de Z " + teeth});
        return false;
    }
    const sql::Recordset& row = rsPiñonDoble_;
    const bool triple = f_.product().shape == data::ProductShape::threeRims;
    const double b2 = column(row, "PDM_b2");
    const double x = column(row, "PDM_x");
    const double rim = triple ? rimsOfTriple(b2, x) : b2;
    for (const Measure& measure : measuresBeforeHeight) {
        put(f_.Text1(measure.field), row[measure.column]);
    }
    put(f_.Text1(measure::height), round2((column(row, "PDM_de") - column(row, "PDM_DF")) / 2));
    put(f_.Text1(measure::hubWidth), round2(column(row, "PDM_a") - b2));
    put(f_.Text1(measure::gap), row["PDM_x"]);
    put(f_.Text1(measure::rim), rim);
    spreadDouble(rim);
    if (isDiscOfTwoRims(f_.product())) {
        voidHub();
    }
    if (triple) {
        spreadTriple(rim);
    }
    return true;
}

void DoubleSprockets::spreadDouble(double rim) {
    const sql::Recordset& row = rsPiñonDoble_;
    f_.Label1(label::rim).setCaption("Llanta (B2)");
    put(f_.txtPDM(doubleSketch::exterior), row["PDM_de"]);
    put(f_.txtPDM(doubleSketch::hubDiameter), row["PDM_dm"]);
    put(f_.txtPDM(doubleSketch::hubHeight),
        round2((column(row, "PDM_de") - column(row, "PDM_DF")) / 2 + column(row, "PDM_h1")));
    f_.txtPDM(doubleSketch::totalWidth).setText(f_.Text1(measure::totalWidth).text());
    put(f_.txtPDM(doubleSketch::rim), rim);
    put(f_.txtPDM(doubleSketch::hubWidth), round2(column(row, "PDM_a") - rim));
    put(f_.txtPDM(doubleSketch::firstRim), row["PDM_b1"]);
    put(f_.txtPDM(doubleSketch::secondRim), row["PDM_b1"]);
    put(f_.txtPDM(doubleSketch::gap), row["PDM_x"]);
}

void DoubleSprockets::voidHub() {
    f_.Text1(measure::hubDiameter).setText("0");
    f_.Text1(measure::hubWidth).setText("0");
    f_.Text1(measure::totalWidth).setText(f_.Text1(measure::rim).text());
}

void DoubleSprockets::spreadTriple(double rim) {
    const sql::Recordset& row = rsPiñonDoble_;
    const double hubWidth = round2(column(row, "PDM_a") - column(row, "PDM_b2"));
    f_.Label1(label::rim).setCaption("Llanta (B3)");
    put(f_.txtTriple(tripleSketch::exterior), row["PDM_de"]);
    put(f_.txtTriple(tripleSketch::hubDiameter), row["PDM_dm"]);
    put(f_.txtTriple(tripleSketch::hubHeight),
        round2((column(row, "PDM_de") - column(row, "PDM_DF")) / 2 + column(row, "PDM_h1")));
    for (const int i : {3, 5, 7}) {
        put(f_.txtTriple(i), row["PDM_b1"]);
    }
    for (const int i : {4, 6}) {
        put(f_.txtTriple(i), row["PDM_x"]);
    }
    put(f_.txtTriple(tripleSketch::hubWidth), hubWidth);
    put(f_.txtTriple(tripleSketch::rim), rim);
    put(f_.txtTriple(tripleSketch::totalWidth), hubWidth + rim);
    f_.Text1(measure::totalWidth).setText(f_.txtTriple(tripleSketch::totalWidth).text());
}

void DoubleSprockets::hubWidthChanged() {
    const bool triple = goesByTripleSketch(f_.product());
    const TextBox& rim = triple ? f_.txtTriple(tripleSketch::rim) : f_.txtPDM(doubleSketch::rim);
    TextBox& total = triple ? f_.txtTriple(tripleSketch::totalWidth) : f_.txtPDM(doubleSketch::totalWidth);
    TextBox& hub = triple ? f_.txtTriple(tripleSketch::hubWidth) : f_.txtPDM(doubleSketch::hubWidth);
    put(f_.Text1(measure::totalWidth), round2(number(f_.Text1(measure::hubWidth)) + number(rim)));
    total.setText(f_.Text1(measure::totalWidth).text());
    hub.setText(f_.Text1(measure::hubWidth).text());
}

void DoubleSprockets::gapChanged() {
    f_.txtPDM(doubleSketch::gap).setText(f_.Text1(measure::gap).text());
    if (goesByTripleSketch(f_.product())) {
        put(f_.txtPDM(doubleSketch::rim),
            number(f_.txtTriple(tripleSketch::firstRim)) * 3 + number(f_.txtTriple(tripleSketch::firstGap)) * 2);
    } else {
        put(f_.txtPDM(doubleSketch::rim), number(f_.txtPDM(doubleSketch::firstRim)) +
                                              number(f_.txtPDM(doubleSketch::secondRim)) +
                                              number(f_.txtPDM(doubleSketch::gap)));
    }
    f_.Text1(measure::rim).setText(f_.txtPDM(doubleSketch::rim).text());
    put(f_.Text1(measure::totalWidth),
        round2(number(f_.Text1(measure::hubWidth)) + number(f_.txtPDM(doubleSketch::rim))));
    f_.txtPDM(doubleSketch::hubWidth).setText(f_.Text1(measure::hubWidth).text());
    f_.txtPDM(doubleSketch::totalWidth).setText(f_.Text1(measure::totalWidth).text());
    if (isDiscOfTwoRims(f_.product())) {
        voidHub();
    }
}

void DoubleSprockets::hubDiameterChanged() {
    f_.txtPDM(doubleSketch::hubDiameter).setText(f_.Text1(measure::hubDiameter).text());
    f_.txtTriple(tripleSketch::hubDiameter).setText(f_.Text1(measure::hubDiameter).text());
}

void DoubleSprockets::msCalcularDobleVariable() {
    // Chosen C-007: runs only for the variable products, for the pulley once its second hub is known; for any other
    // type it would overwrite the total.
    if (f_.bCargandoPropuesta || !f_.secondHubIsKnown()) {
        return;
    }
    f_.txtDCV(variableSketch::rim).setText(f_.Text1(measure::rim).text());
    f_.txtDCV(variableSketch::hubWidth).setText(f_.Text1(measure::hubWidth).text());
    f_.txtDCV(variableSketch::secondHubWidth).setText(f_.Text1(measure::secondHubWidth).text());
    put(f_.txtDCV(variableSketch::totalWidth),
        round2(numberOrZero(f_.Text1(measure::hubWidth)) + numberOrZero(f_.Text1(measure::rim)) +
               numberOrZero(f_.Text1(measure::secondHubWidth))));
    f_.txtDCV(variableSketch::hubDiameter).setText(f_.Text1(measure::hubDiameter).text());
    f_.txtDCV(variableSketch::secondHubDiameter).setText(f_.Text1(measure::secondHubDiameter).text());
    f_.txtDCV(variableSketch::exterior).setText(f_.Text1(measure::exterior).text());
    f_.Text1(measure::totalWidth).setText(f_.txtDCV(variableSketch::totalWidth).text());
}

// Differs D-005: the figures of the variable sketch follow the fields beside them also during a load, when the
// calculation that writes them is off; otherwise they would be another proposal's.
void DoubleSprockets::repeatOnVariableSketch() {
    if (f_.product().shape == data::ProductShape::variable) {
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
