#include "velmora/estimate/presentation.h"

#include <array>
#include <initializer_list>

#include "velmora/estimate/field_names.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::estimate {

using runtime::CStr;
using runtime::Format;

namespace {

void show(bool visible, std::initializer_list<screen::Control*> controls) {
    for (screen::Control* control : controls) {
        control->setVisible(visible);
    }
}

/// Captions of the frames of measures, by type; empty where the type leaves them.
struct FrameCaptions {
    const char* measures = "";  ///< Frame2
    const char* variable = "";  ///< fraDobleVar
};

constexpr std::array<FrameCaptions, data::productTypes.size()> frameCaptions = [] {
    std::array<FrameCaptions, data::productTypes.size()> captions{};
    captions[data::plainSprocket].measures = captions[data::gear].measures = "Medidas del piñon";
    captions[data::disc].measures = captions[data::gearDisc].measures = "Medidas del disco";
    captions[data::twoHubSprocket].measures = "Medidas del piñon de 2 cubos";
    captions[data::smoothPulley].measures = "Medidas de la polea lisa";
    captions[data::variableSprocket].variable = "Medidas Piñon 2 Cubos Variables";
    captions[data::variablePulley].variable = "Medidas Polea Lisa 2 Cubos Variable";
    return captions;
}();

/// What the toothing of a multiple product takes from its table and nobody types.
constexpr std::array fromTable{0, 8, 2, 4, 15, 6, 17, 9};

}  // namespace

void Presentation::cboTipoPre_Click() {
    const int type = f_.type();
    reset();
    if (type >= 0) {
        presentType(type);
    }
    writeWidths(type);
    f_.cmdEng.setEnabled(data::isGear(type) && f_.proposal.isNew());
    f_.invalidateSketches();
}

void Presentation::reset() {
    show(false, {&f_.lblTapacuboTriple(0), &f_.lblTapacuboTriple(1)});
    msVerCremallera(false);
    msVerTriple(false);
    f_.Text1(measure::root).setEnabled(true);
    f_.Text1(measure::height).setEnabled(true);
    show(false, {&f_.Label1(label::firstRim), &f_.Text1(measure::firstRim), &f_.Text1(measure::gap),
                 &f_.Label1(label::gap), &f_.fraPDM});
    f_.Text1(measure::gap).setEnabled(false);
    f_.Label1(label::rim).setCaption("Llanta");
    show(false, {&f_.lblTapaCubo(0), &f_.lblTapaCubo(1)});
    show(true, {&f_.Text1(measure::hubDiameter), &f_.Text1(measure::hubWidth), &f_.Label1(label::hubWidth),
                &f_.Label1(label::hubDiameter), &f_.Text1(measure::roller), &f_.Label1(label::roller)});
    f_.txtModulo.setVisible(false);
    f_.Label1(label::chainWidth).setCaption("AC");
    f_.fraDobleVar.setVisible(false);
    msVerDoble(false);
    show(false, {&f_.Label1(label::secondHubWidth), &f_.Text1(measure::secondHubWidth),
                 &f_.Label1(label::secondHubDiameter), &f_.Text1(measure::secondHubDiameter)});
    f_.Label1(label::hubWidth).setCaption("Ancho cubo");
    f_.Label1(label::hubDiameter).setCaption("Ø Cubo");
    f_.Text1(measure::totalWidth).setEnabled(true);
}

void Presentation::presentType(int type) {
    const FrameCaptions& captions = frameCaptions[static_cast<std::size_t>(type)];
    switch (type) {
        case data::plainSprocket:
        case data::gear:
            showHubs(Hubs::one);
            f_.Frame2.setCaption(captions.measures);
            msVerCubo(true);
            break;
        case data::disc:
        case data::gearDisc:
            showHubs(Hubs::none);
            f_.Frame2.setCaption(captions.measures);
            msVerCubo(false);
            break;
        case data::twoHubSprocket:
        case data::smoothPulley:
            showHubs(Hubs::two);
            f_.Frame2.setCaption(captions.measures);
            if (type == data::smoothPulley) {
                f_.Text1(measure::root).setEnabled(false);
                f_.Text1(measure::height).setEnabled(false);
            }
            msVerCubo(true);
            break;
        case data::doubleSprocket:
        case data::twoChainSprocket:
            presentDouble(true, type);
            break;
        case data::doubleDisc:
        case data::twoChainDisc:
            presentDouble(false, type);
            break;
        case data::variableSprocket:
        case data::variablePulley:
            msVerCubo(true);
            f_.fraDobleVar.setCaption(captions.variable);
            show(true, {&f_.fraDobleVar, &f_.Label1(label::secondHubWidth), &f_.Text1(measure::secondHubWidth),
                        &f_.Label1(label::secondHubDiameter), &f_.Text1(measure::secondHubDiameter)});
            f_.Label1(label::hubWidth).setCaption("Ancho cubo A");
            f_.Label1(label::hubDiameter).setCaption("Ø Cubo A");
            f_.Text1(measure::totalWidth).setEnabled(false);
            break;
        case data::tripleSprocket:
            f_.fraTriple.setCaption("Medidas Piñon Triple");
            presentTriple();
            break;
        case data::rack:
            msVerCremallera(true);
            break;
        case data::tripleDisc:
            presentTriple();
            f_.fraTriple.setCaption("Medidas Disco Triple");
            show(true, {&f_.lblTapacuboTriple(0), &f_.lblTapacuboTriple(1)});
            f_.lblTapacuboTriple(0).setBackColor(screen::colors::white);
            f_.lblTapacuboTriple(1).setBackColor(screen::colors::white);
            show(false, {&f_.txtTriple(tripleSketch::hubDiameter), &f_.txtTriple(tripleSketch::hubWidth),
                         &f_.txtTriple(tripleSketch::totalWidth)});
            msVerCubo(false);
            break;
        default:
            break;
    }
}

void Presentation::showHubs(Hubs hubs) {
    show(hubs != Hubs::none,
         {&f_.Text3(caption::hubDiameter), &f_.Text3(caption::hubWidth), &f_.Text3(caption::totalWidth)});
    show(hubs == Hubs::two, {&f_.Text3(caption::totalOfTwoHubs), &f_.Text3(caption::hubWidthCopy)});
}

void Presentation::presentDouble(bool withHub, int type) {
    if (!withHub) {
        show(true, {&f_.lblTapaCubo(0), &f_.lblTapaCubo(1)});
    }
    show(true, {&f_.Label1(label::firstRim), &f_.Text1(measure::firstRim), &f_.fraPDM});
    f_.Label1(label::rim).setCaption("Llanta (B2)");
    show(withHub, {&f_.txtPDM(doubleSketch::hubDiameter), &f_.txtPDM(doubleSketch::hubWidth),
                   &f_.txtPDM(doubleSketch::totalWidth)});
    if (withHub) {
        show(false, {&f_.lblTapaCubo(0), &f_.lblTapaCubo(1)});
        msVerDoble(true);
        return;
    }
    show(false, {&f_.Text1(measure::hubDiameter), &f_.Text1(measure::hubWidth), &f_.Label1(label::hubWidth),
                 &f_.Label1(label::hubDiameter)});
    msVerDoble(true);
    msVerCubo(false);
    f_.Text1(measure::gap).setEnabled(type == data::twoChainDisc);
}

void Presentation::presentTriple() {
    show(true, {&f_.Text1(measure::gap), &f_.Label1(label::gap)});
    show(false, {&f_.Label2(2), &f_.Label2(3)});
    show(true, {&f_.Label1(label::firstRim), &f_.Text1(measure::firstRim), &f_.fraPDM});
    f_.Label1(label::rim).setCaption("Llanta (B3)");
    show(false, {&f_.lblTapaCubo(0), &f_.lblTapaCubo(1)});
    msVerTriple(true);
}

void Presentation::msVerCremallera(bool b) {
    show(!b, {&f_.cboDobles, &f_.fraTriple});
    for (int i = 1; i <= 10; ++i) {
        f_.txtTriple(i).setVisible(!b);
    }
    runtime::ErrorTrap trap;
    for (int i = 1; i <= 8; ++i) {
        trap([&] { f_.Text1(i).setVisible(!b); });
    }
    show(b, {&f_.fraCre1, &f_.fraCremallera, &f_.fraMatCre});
    show(!b, {&f_.fraCubo, &f_.fraMatDisco});
}

void Presentation::msVerTriple(bool b) {
    f_.fraTriple.setCaption("Medidas Piñon Triple");
    show(b, {&f_.cboDobles, &f_.fraTriple, &f_.Text1(measure::firstRim), &f_.Text1(measure::gap)});
    f_.txtTriple.forEach([b](TextBox& box) { box.setVisible(b); });
    for (const int i : fromTable) {
        f_.Text1(i).setEnabled(!b);
    }
}

void Presentation::msVerDoble(bool b) {
    show(b, {&f_.cboDobles, &f_.fraPDM, &f_.Label1(label::firstRim), &f_.Text1(measure::firstRim),
             &f_.Text1(measure::gap), &f_.Label1(label::gap)});
    for (const int i : fromTable) {
        f_.Text1(i).setEnabled(!b);
    }
    f_.Text1(measure::gap).setEnabled(b && f_.type() == data::twoChainSprocket);
    f_.Text1(measure::firstRim).setEnabled(false);
}

// Types 4, 5, 12 and 13 do not come through here: the total width stays seen or hidden as the last type left it.
void Presentation::msVerCubo(bool b) {
    show(b, {&f_.fraCubo, &f_.Label1(label::hubDiameter), &f_.Label1(label::totalWidth), &f_.Label1(label::hubWidth),
             &f_.Text1(measure::hubDiameter), &f_.Text1(measure::totalWidth), &f_.Text1(measure::hubWidth)});
}

void Presentation::writeWidths(int type) {
    if (f_.Text1(measure::rim).text().empty() || f_.Text1(measure::hubWidth).text().empty()) {
        return;
    }
    const auto rim = [&] { return number(f_.Text1(measure::rim)); };
    const auto hub = [&] { return number(f_.Text1(measure::hubWidth)); };
    if (data::isTwoHubs(type)) {
        const double sum = rim() + 2 * hub();
        f_.Text1(measure::totalWidth).setText(Format(round2(sum), "0.00"));
        if (data::isVariable(type)) {
            // Kept K-013: the field counts hub A twice, the label hubs A and B; they differ when the hubs differ.
            f_.txtDCV(variableSketch::totalWidth)
                .setText("Ancho total " + CStr(number(f_.Text1(measure::secondHubWidth)) + hub() + rim()));
        } else {
            f_.Text3(caption::totalOfTwoHubs).setText("Ancho total " + CStr(sum));
        }
    } else if (type == data::plainSprocket) {
        f_.Text1(measure::totalWidth).setText(Format(round2(rim() + hub()), "0.00"));
    }
}

void Presentation::showModule() {
    f_.Text1(measure::chainWidth).setVisible(false);
    f_.txtModulo.setVisible(true);
    f_.txtModulo.setEnabled(false);
    show(false, {&f_.Text1(measure::roller), &f_.Label1(label::roller)});
    f_.Label1(label::chainWidth).setCaption("Modulo");
}

// Kept K-014: a new gear bears the plain captions and fields until it has been saved and read back.
void Presentation::msPresentarEngranaje() {
    if (!data::isGear(f_.type())) {
        return;
    }
    cboTipoPre_Click();
    showModule();
    f_.Frame2.setCaption(f_.type() == data::gear ? "Medidas del Engranaje" : "Medidas del Disco de Engranaje");
}

}  // namespace velmora::estimate
