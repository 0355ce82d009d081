// Layout of the form of doubles' values.

#include <array>

#include "velmora/reference/frm_pdm_val.h"
#include "velmora/reference/value_forms.h"
#include "velmora/reference/value_sketches.h"

namespace velmora::reference {

using screen::Layout;
using screen::Role;
namespace lay = screen::layout;

namespace {

constexpr int chainValueWidth = 8;  ///< in digits
constexpr int chainDecimals = 2;
constexpr int chainSketchWidth = 45;  ///< in digits
constexpr int chainSketchLines = 17;
constexpr int chainListShare = 20;  ///< of the height that the sketch leaves

constexpr std::array chainMeanings{
    Meaning{.field = chainTeeth, .text = "Z: número de dientes"},
    Meaning{.field = chainPitch, .text = "Paso de la cadena"},
    Meaning{.field = chainRoller, .text = "Diámetro del rodillo"},
    Meaning{.field = chainInnerWidth, .text = "Ancho interior de la cadena"},
    Meaning{.field = chainB1, .text = "b1: ancho de cada llanta"},
    Meaning{.field = chainB2, .text = "B2: ancho de todas las llantas"},
    Meaning{.field = chainD2, .text = "D2: diámetro del agujero"},
    Meaning{.field = chainDm, .text = "Dm: diámetro del cubo"},
    Meaning{.field = chainDp, .text = "Dp: diámetro primitivo"},
    Meaning{.field = chainDf, .text = "Df: diámetro de fondo"},
    Meaning{.field = chainDe, .text = "De: diámetro exterior"},
    Meaning{.field = chainX, .text = "X: hueco entre llantas"},
    Meaning{.field = chainA, .text = "A: ancho total"},
    Meaning{.field = chainH1, .text = "H1: altura hasta el cubo entre las llantas"},
};

Layout chainEntered(std::string caption, screen::TextBox& box) {
    return lay::field(std::move(caption), box, chainValueWidth).number(chainDecimals);
}
Layout chainComputed(std::string caption, screen::TextBox& box) {
    return lay::field(std::move(caption), box, chainValueWidth).number(chainDecimals).as(Role::calculated);
}

void writeFixedCaptions(ChainFields& f) {
    f.Frame1.setCaption("Valores de la cadena (mm)");
    f.Frame2.setCaption("Valores de un número de dientes (mm)");
    f.cmdGrabar.setCaption("Grabar datos");
    f.cmdSalir.setCaption("&Salir");
    f.dbgRs.setAccessibleName("Valores de la cadena");
    f.picMedidas.setAccessibleName("Qué mide cada letra");
    f.picMedidas.setSource(doubleSketch);
    explain(f.Text1, chainMeanings);
    f.cboDobles.setHint("Cadena cuyos valores se muestran");
    f.dbgRs.setHint("Valores de la cadena; las flechas eligen un número de dientes");
}

Layout ofChain(ChainFields& f) {
    return lay::group(
        f.Frame1,
        lay::column(
            lay::field("Tipo :", f.cboDobles),
            lay::grid(2,                                                                                           //
                      chainEntered("Paso :", f.Text1(chainPitch)), chainEntered("b1 :", f.Text1(chainB1)),         //
                      chainEntered("Cadena :", f.Text1(chainInnerWidth)), chainEntered("B2 :", f.Text1(chainB2)),  //
                      chainEntered("Rodillo :", f.Text1(chainRoller)), chainComputed("X :", f.Text1(chainX)))));
}

Layout ofTeeth(ChainFields& f) {
    return lay::group(
        f.Frame2, lay::column(lay::row(lay::field("Z :", f.Text1(chainTeeth), chainValueWidth).number(), lay::space()),
                              lay::grid(3,  //
                                        chainEntered("De :", f.Text1(chainDe)), chainEntered("Dm :", f.Text1(chainDm)),
                                        chainEntered("A :", f.Text1(chainA)),  //
                                        chainEntered("Dp :", f.Text1(chainDp)), chainEntered("D2 :", f.Text1(chainD2)),
                                        chainEntered("H1 :", f.Text1(chainH1)),  //
                                        chainComputed("Df :", f.Text1(chainDf)), lay::gap(), lay::gap())));
}

}  // namespace

void frmPDMVal::arrange() {
    writeFixedCaptions(f_);
    setLayout(lay::column(
        lay::row(lay::column(ofChain(f_), ofTeeth(f_)),
                 lay::plain(f_.picMedidas, chainSketchWidth).tall(chainSketchLines).stretched()),
        lay::plain(f_.dbgRs).stretched(chainListShare),
        lay::row(lay::plain(f_.cmdNuevo), lay::plain(f_.cmdGrabar), lay::space(), lay::plain(f_.cmdSalir))));
    f_.Text1(chainDf).setTabStop(false);
    setTabOrder({&f_.cboDobles, &f_.Text1(chainPitch), &f_.Text1(chainInnerWidth), &f_.Text1(chainRoller),
                 &f_.Text1(chainB1), &f_.Text1(chainB2), &f_.Text1(chainTeeth), &f_.Text1(chainDe), &f_.Text1(chainDp),
                 &f_.Text1(chainDm), &f_.Text1(chainD2), &f_.Text1(chainA), &f_.Text1(chainH1), &f_.dbgRs, &f_.cmdNuevo,
                 &f_.cmdGrabar, &f_.cmdSalir});
}

}  // namespace velmora::reference
