#include "velmora/estimate/sprocket_geometry.h"

#include <array>

#include "velmora/estimate/field_names.h"
#include "velmora/estimate/rules.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::estimate {

using runtime::CStr;
using runtime::Format;

namespace {

enum Field { pitch = 0, teeth = 1, roller = 2, bore = 7, rim = 9, hubWidth = 10, secondHubWidth = 14 };

/// A caption of the sketch that shows a field of Text1.
struct SketchCaption {
    int field;
    int caption;
    const char* prefix;
};

constexpr std::array sketchCaptions{
    SketchCaption{.field = measure::rim, .caption = caption::rim, .prefix = "LLanta "},
    SketchCaption{.field = measure::hubWidth, .caption = caption::hubWidth, .prefix = "Ancho "},
    SketchCaption{.field = measure::exterior, .caption = caption::exterior, .prefix = "Diametro exterior "},
    SketchCaption{.field = measure::hubDiameter, .caption = caption::hubDiameter, .prefix = "Diametro cubo "},
    SketchCaption{.field = measure::totalWidth, .caption = caption::totalWidth, .prefix = "Ancho Total "},
};

}  // namespace

void SprocketGeometry::msRecalcularMedidas() {
    if (f_.Text1(teeth).text().empty()) {
        return;
    }
    const double z = number(f_.Text1(teeth));
    if (z == 0) {
        screen_.show({.text = "El numero de dientes no puede ser cero"});
        f_.Text1(teeth).setFocus();
    } else {
        put(f_.Text1(measure::pitchDiameter), pitchDiameter(number(f_.Text1(pitch)), z));
    }
    put(f_.Text1(measure::root), number(f_.Text1(measure::pitchDiameter)) - number(f_.Text1(roller)));
    put(f_.Text1(measure::exterior),
        FnDmexterior(number(f_.Text1(measure::pitchDiameter)), z, number(f_.Text1(roller))));
    const auto height = [&] {
        return toothHeight(number(f_.Text1(measure::exterior)), number(f_.Text1(measure::root)));
    };
    // Kept K-011: a height of 0 is filled here, and any height is overwritten below.
    if (number(f_.Text1(measure::height)) == 0) {
        put(f_.Text1(measure::height), height());
    }
    if (f_.product().toothing == data::Toothing::smooth) {
        f_.Text1(measure::exterior).setText(Format(pulleyExterior(number(f_.Text1(measure::root))), "0.00"));
    }
    writeHubAndTotalWidth();
    f_.Text3(caption::totalWidth).setText("Ancho Total " + f_.Text1(measure::totalWidth).text());
    put(f_.Text1(measure::height), height());
    writeHubAndTotalWidth();
    put(f_.Text1(rim), FnLlanta(number(f_.Text1(measure::chainWidth))));
    // Kept K-012: the caption "Ancho total " differs from "Ancho Total ", so that its Change event runs the thickness
    // rule with the current widths.
    f_.Text3(caption::totalWidth).setText("Ancho total " + f_.Text1(measure::totalWidth).text());
    writeHubWidth();
    peers_.costing.msCalcularGrueso();
    writeRimCaption();
    writeHubWidth();
    peers_.costing.msCalcularDisco();
    peers_.costing.msCalcularCubo();
    // The calls above may have changed the fields: captions and hub width are written from the current values.
    writeRimCaption();
    writeHubWidth();
}

void SprocketGeometry::writeHubAndTotalWidth() {
    double dp = number(f_.Text1(measure::pitchDiameter));
    put(f_.Text1(measure::hubDiameter), peers_.constants.FnDmCubo(dp));
    dp = number(f_.Text1(measure::pitchDiameter));
    put(f_.Text1(measure::totalWidth), peers_.constants.FnAnchoTotal(dp));
}

void SprocketGeometry::writeRimCaption() {
    f_.Text3(caption::rim).setTag(f_.Text1(rim).text());
    f_.Text3(caption::rim).setText("LLanta " + f_.Text3(caption::rim).tag());
}

void SprocketGeometry::writeHubWidth() {
    put(f_.Text1(hubWidth), number(f_.Text1(measure::totalWidth)) - number(f_.Text1(rim)));
    f_.Text3(caption::hubWidth).setText("Ancho " + f_.Text1(hubWidth).text());
}

void SprocketGeometry::Text1_LostFocus(int Index) {
    const TypedFields::ProgramWrites masks(f_.typed);
    TextBox& box = f_.Text1(Index);
    if (!box.holdsNumber()) {
        box.setText("0");
    }
    oUtil_.SalirCampo(box, "#0.00");
    const data::ProductType& type = f_.product();
    if (type.chainList) {
        leaveWithChainList(Index);
    } else if (type.shape == data::ProductShape::rack) {
        peers_.rack.Text1_LostFocus(Index);
    } else if (type.toothing != data::Toothing::gear) {
        leavePlain(Index);
    }
    if (Index == roller && onToothingEntered) {
        onToothingEntered();
    }
}

void SprocketGeometry::leavePlain(int Index) {
    f_.Label1(label::rim).setCaption("Llanta");
    f_.Label1(label::firstRim).setVisible(false);
    f_.Text1(measure::firstRim).setVisible(false);
    f_.fraPDM.setVisible(false);
    switch (Index) {
        case teeth:
            leaveTeeth();
            break;
        case roller:
            leaveRoller();
            break;
        case rim:
            peers_.costing.msCalcularDisco();
            peers_.costing.msCalcularCubo();
            writeTotalWidth(Index);
            break;
        case hubWidth:
            peers_.costing.msCalcularDisco();
            peers_.costing.msCalcularCubo();
            tail(writeTotalWidth(Index));
            break;
        case secondHubWidth:
            // Chosen C-030: the rest of the rule runs as for the first hub, but no total has been computed: a small
            // variable pulley whose second hub is not known is cut 3 mm thick until its measures are recalculated.
            tail(0);
            break;
        default:
            break;
    }
    peers_.totals.msMostrarFormula();
}

void SprocketGeometry::leaveTeeth() {
    const double z = number(f_.Text1(teeth));
    if (z == 0) {
        f_.Text1(teeth).setFocus();
    } else {
        put(f_.Text1(measure::pitchDiameter), pitchDiameter(number(f_.Text1(pitch)), z));
    }
}

void SprocketGeometry::leaveRoller() {
    msRecalcularMedidas();
    if (f_.product().hubs == data::Hubs::none) {
        return;
    }
    if (number(f_.Text1(measure::exterior)) > onePieceLimit) {
        peers_.materials.msCargarMaterialesConCubo();
    } else {
        peers_.materials.msCargarMaterialesSinCubo();
    }
}

// Returns the computed total; 0 when none was computed.
double SprocketGeometry::writeTotalWidth(int Index) {
    const data::TotalWidth follows = f_.product().totalWidth;
    TextBox& total = f_.Text1(measure::totalWidth);
    if (follows == data::TotalWidth::rim) {
        if (Index == rim && !f_.Text1(rim).text().empty()) {
            total.setText(Format(round2(number(f_.Text1(rim))), "0.00"));
        }
        return 0;
    }
    if (f_.Text1(rim).text().empty() || f_.Text1(hubWidth).text().empty()) {
        return 0;
    }
    const double oneRim = number(f_.Text1(rim));
    const double oneHub = number(f_.Text1(hubWidth));
    double sum = 0;
    if (follows == data::TotalWidth::rimAndTwoHubs) {
        sum = oneHub + oneRim + oneHub;
        total.setText(Format(round2(sum), "0.00"));
        f_.Text3(caption::totalOfTwoHubs).setText("Ancho total " + CStr(sum));
    } else if (follows == data::TotalWidth::rimAndHub) {
        sum = oneRim + oneHub;
        total.setText(Format(round2(sum), "0.00"));
    }
    return round2(sum);
}

void SprocketGeometry::tail(double total) {
    if (f_.secondHubIsKnown()) {
        peers_.doubles.msCalcularDobleVariable();
    } else if (number(f_.Text1(measure::exterior)) <= onePieceLimit) {
        f_.Text4(cut::discWidth).setText(Format(total + 3, "0.00"));
    }
}

void SprocketGeometry::leaveWithChainList(int Index) {
    f_.Label1(label::firstRim).setVisible(true);
    f_.Text1(measure::firstRim).setVisible(true);
    f_.fraPDM.setVisible(true);
    if (!peers_.doubles.Text1_LostFocus(Index)) {
        return;
    }
    if (Index != bore) {
        peers_.costing.msCalcularDisco();
        peers_.costing.msCalcularCubo();
    }
}

void SprocketGeometry::Text1_Change(int Index) {
    f_.noteChange(f_.Text1(Index));
    for (const SketchCaption& follows : sketchCaptions) {
        if (follows.field == Index) {
            const std::string& value = f_.Text1(Index).text();
            if (Index == rim) {
                f_.Text3(follows.caption).setTag(value);
            }
            f_.Text3(follows.caption).setText(follows.prefix + value);
            if (Index == 15) {
                peers_.costing.msMostrarProcesoCubo();
            }
            peers_.doubles.msCalcularDobleVariable();
        }
    }
    peers_.doubles.variableMeasureChanged(Index);
    f_.invalidateSketches();
}

void SprocketGeometry::Text1_KeyPress(int Index, screen::KeyPress& key) {
    const bool whole = Index == teeth || Index == 12 || Index == 13;
    oUtil_.TeclaCampo(f_.Text1(Index), key, whole);
}

void SprocketGeometry::Text3_Change(int Index) {
    if (Index == 3) {
        f_.Text3(caption::hubWidthCopy).setText(f_.Text3(caption::hubWidth).text());
    } else if (Index == 4) {
        peers_.costing.msCalcularGrueso();
    }
}

}  // namespace velmora::estimate
