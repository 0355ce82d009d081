// Layout of the gears' form.

#include <array>

#include "velmora/reference/frm_eng_val.h"
#include "velmora/reference/value_forms.h"
#include "velmora/reference/value_sketches.h"

namespace velmora::reference {

using screen::Layout;
using screen::Role;
namespace lay = screen::layout;

namespace {

constexpr int valueWidth = 10;  ///< in digits
constexpr int gearDecimals = 2;
constexpr int gearSketchWidth = 40;  ///< in digits
constexpr int gearSketchLines = 15;
constexpr int gearListShare = 20;  ///< of the height that the sketch leaves

constexpr std::array gearMeanings{
    Meaning{.field = gearModule, .text = "M: módulo"},
    Meaning{.field = gearTeeth, .text = "Z: número de dientes"},
    Meaning{.field = gearPitch, .text = "Paso: π x M"},
    Meaning{.field = gearPitchDiameter, .text = "Dp: diámetro primitivo"},
    Meaning{.field = gearOutsideDiameter, .text = "De: diámetro exterior"},
    Meaning{.field = gearInnerDiameter, .text = "Di: diámetro interior, al fondo de los dientes"},
    Meaning{.field = gearHubDiameter, .text = "Dm: diámetro del cubo"},
    Meaning{.field = gearBore, .text = "D1: diámetro del agujero"},
    Meaning{.field = gearTotalWidth, .text = "A: ancho total"},
    Meaning{.field = gearFaceWidth, .text = "B: ancho del dentado"},
    Meaning{.field = gearHubWidth, .text = "C: ancho del cubo"},
    Meaning{.field = gearHeight, .text = "H: altura"},
};

Layout entered(std::string caption, screen::TextBox& box) {
    return lay::field(std::move(caption), box, valueWidth).number(gearDecimals);
}
Layout computed(std::string caption, screen::TextBox& box) {
    return lay::field(std::move(caption), box, valueWidth).number(gearDecimals).as(Role::calculated);
}

void writeFixedCaptions(GearFields& f) {
    f.Frame1.setCaption("Dentado");
    f.Frame2.setCaption("Medidas de la pieza (mm)");
    f.Label1(gearHubDiameter).setCaption("Dm :");
    f.Label1(gearTotalWidth).setCaption("A :");
    f.Label1(gearHubWidth).setCaption("C :");
    f.cmdGrabar.setCaption("Grabar datos");
    f.cmdSalir.setCaption("&Salir");
    f.dbgRs.setAccessibleName("Engranajes");
    // The list has its head before the first search.
    f.dbgRs.setColumns(gearColumns());
    f.picMedidas.setAccessibleName("Qué mide cada letra");
    f.picMedidas.setSource([&f] { return gearSketch(f.Text1(gearHubDiameter).visible()); });
    explain(f.Text1, gearMeanings);
    f.cboDobles.setHint("Engranaje con cubo o disco");
    f.dbgRs.setHint("Engranajes con el último valor escrito; espacio o doble clic elige uno");
}

Layout toothing(GearFields& f) {
    return lay::group(
        f.Frame1,
        lay::column(lay::row(lay::field("Tipo :", f.cboDobles, 18), lay::space()),
                    lay::grid(4,  //
                              entered("M :", f.Text1(gearModule)), computed("Paso :", f.Text1(gearPitch)),
                              computed("De :", f.Text1(gearOutsideDiameter)), entered("H :", f.Text1(gearHeight)),
                              lay::field("Z :", f.Text1(gearTeeth), valueWidth).number(),
                              computed("Dp :", f.Text1(gearPitchDiameter)),
                              computed("Di :", f.Text1(gearInnerDiameter)), lay::gap())));
}

Layout piece(GearFields& f) {
    const auto ofHub = [&](int field) {
        return lay::field(f.Label1(field), f.Text1(field), valueWidth).number(gearDecimals);
    };
    return lay::group(f.Frame2,
                      lay::grid(2,                                                                           //
                                ofHub(gearHubDiameter), ofHub(gearTotalWidth),                               //
                                entered("D1 :", f.Text1(gearBore)), entered("B :", f.Text1(gearFaceWidth)),  //
                                lay::gap(), ofHub(gearHubWidth).as(Role::calculated)));
}

}  // namespace

void frmENGVal::arrange() {
    writeFixedCaptions(f_);
    setLayout(lay::column(
        lay::row(lay::column(toothing(f_), piece(f_)),
                 lay::plain(f_.picMedidas, gearSketchWidth).tall(gearSketchLines).stretched()),
        lay::plain(f_.dbgRs).stretched(gearListShare),
        lay::row(lay::plain(f_.cmdNuevo), lay::plain(f_.cmdGrabar), lay::space(), lay::plain(f_.cmdSalir))));
    // Chosen C-162: computed fields are no tab stops: leaving one would empty the list that the teeth have just filled.
    setTabOrder({&f_.cboDobles, &f_.Text1(gearModule), &f_.Text1(gearTeeth), &f_.Text1(gearHeight),
                 &f_.Text1(gearHubDiameter), &f_.Text1(gearBore), &f_.Text1(gearTotalWidth), &f_.Text1(gearFaceWidth),
                 &f_.dbgRs, &f_.cmdNuevo, &f_.cmdGrabar, &f_.cmdSalir});
}

}  // namespace velmora::reference
