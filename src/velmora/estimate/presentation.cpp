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

/// Fields of a multiple product that are taken from its table and cannot be typed.
constexpr std::array fromTable{0, 8, 2, 4, 15, 6, 17, 9};

}  // namespace

void Presentation::cboTipoPre_Click() {
    const data::ProductType& type = f_.product();
    reset();
    if (type.number >= 0) {
        presentType(type);
    }
    writeWidths(type.totalWidth);
    f_.cmdEng.setEnabled(type.toothing == data::Toothing::gear && f_.proposal.isNew());
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

void Presentation::presentType(const data::ProductType& type) {
    switch (type.shape) {
        case data::ProductShape::oneRim:
            presentOneRim(type);
            break;
        case data::ProductShape::twoRims:
            presentTwoRims(type);
            break;
        case data::ProductShape::threeRims:
            presentThreeRims(type);
            break;
        case data::ProductShape::variable:
            presentVariable(type);
            break;
        case data::ProductShape::rack:
            msVerCremallera(true);
            f_.fraCremallera.setCaption(type.measuresCaption);
            break;
    }
}

void Presentation::presentOneRim(const data::ProductType& type) {
    const bool hub = type.hasHub();
    show(hub, {&f_.Text3(caption::hubDiameter), &f_.Text3(caption::hubWidth), &f_.Text3(caption::totalWidth)});
    show(type.hubs == data::Hubs::twoAlike, {&f_.Text3(caption::totalOfTwoHubs), &f_.Text3(caption::hubWidthCopy)});
    f_.Frame2.setCaption(type.measuresCaption);
    if (type.toothing == data::Toothing::smooth) {
        f_.Text1(measure::root).setEnabled(false);
        f_.Text1(measure::height).setEnabled(false);
    }
    msVerCubo(hub);
}

void Presentation::presentTwoRims(const data::ProductType& type) {
    const bool hub = type.hasHub();
    show(!hub, {&f_.lblTapaCubo(0), &f_.lblTapaCubo(1)});
    show(true, {&f_.Label1(label::firstRim), &f_.Text1(measure::firstRim), &f_.fraPDM});
    f_.fraPDM.setCaption(type.measuresCaption);
    f_.Label1(label::rim).setCaption(type.rimCaption);
    show(hub, {&f_.txtPDM(doubleSketch::hubDiameter), &f_.txtPDM(doubleSketch::hubWidth),
               &f_.txtPDM(doubleSketch::totalWidth)});
    msVerDoble(true);
    if (!hub) {
        msVerCubo(false);
    }
}

void Presentation::presentThreeRims(const data::ProductType& type) {
    show(true, {&f_.Text1(measure::gap), &f_.Label1(label::gap)});
    show(false, {&f_.Label2(2), &f_.Label2(3)});
    show(true, {&f_.Label1(label::firstRim), &f_.Text1(measure::firstRim), &f_.fraPDM});
    f_.Label1(label::rim).setCaption(type.rimCaption);
    show(false, {&f_.lblTapaCubo(0), &f_.lblTapaCubo(1)});
    msVerTriple(true);
    f_.fraTriple.setCaption(type.measuresCaption);
    if (!type.hasHub()) {
        coverHubOfThreeRims();
    }
}

void Presentation::coverHubOfThreeRims() {
    for (Label* cover : {&f_.lblTapacuboTriple(0), &f_.lblTapacuboTriple(1)}) {
        cover->setVisible(true);
        cover->setBackColor(screen::colors::white);
    }
    show(false, {&f_.txtTriple(tripleSketch::hubDiameter), &f_.txtTriple(tripleSketch::hubWidth),
                 &f_.txtTriple(tripleSketch::totalWidth)});
    msVerCubo(false);
}

void Presentation::presentVariable(const data::ProductType& type) {
    msVerCubo(true);
    f_.fraDobleVar.setCaption(type.measuresCaption);
    show(true, {&f_.fraDobleVar, &f_.Label1(label::secondHubWidth), &f_.Text1(measure::secondHubWidth),
                &f_.Label1(label::secondHubDiameter), &f_.Text1(measure::secondHubDiameter)});
    f_.Label1(label::hubWidth).setCaption("Ancho cubo A");
    f_.Label1(label::hubDiameter).setCaption("Ø Cubo A");
    f_.Text1(measure::totalWidth).setEnabled(false);
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
    f_.Text1(measure::gap).setEnabled(b && f_.product().gapTyped);
    f_.Text1(measure::firstRim).setEnabled(false);
}

// Not called for types 4, 5, 12 and 13: the total width stays visible or hidden as the previous type left it.
void Presentation::msVerCubo(bool b) {
    show(b, {&f_.fraCubo, &f_.Label1(label::hubDiameter), &f_.Label1(label::totalWidth), &f_.Label1(label::hubWidth),
             &f_.Text1(measure::hubDiameter), &f_.Text1(measure::totalWidth), &f_.Text1(measure::hubWidth)});
}

void Presentation::writeWidths(data::TotalWidth follows) {
    if (f_.Text1(measure::rim).text().empty() || f_.Text1(measure::hubWidth).text().empty()) {
        return;
    }
    const auto rim = [&] { return number(f_.Text1(measure::rim)); };
    const auto hub = [&] { return number(f_.Text1(measure::hubWidth)); };
    const auto writeTotal = [&](double sum) { f_.Text1(measure::totalWidth).setText(Format(round2(sum), "0.00")); };
    switch (follows) {
        case data::TotalWidth::rimAndHub:
            writeTotal(rim() + hub());
            break;
        case data::TotalWidth::rimAndTwoHubs: {
            const double sum = rim() + 2 * hub();
            writeTotal(sum);
            f_.Text3(caption::totalOfTwoHubs).setText("Ancho total " + CStr(sum));
            break;
        }
        case data::TotalWidth::rimAndUnlikeHubs:
            // Kept K-013: the field counts hub A twice, the label hubs A and B; they differ when the hubs differ.
            writeTotal(rim() + 2 * hub());
            f_.txtDCV(variableSketch::totalWidth)
                .setText("Ancho total " + CStr(number(f_.Text1(measure::secondHubWidth)) + hub() + rim()));
            break;
        case data::TotalWidth::rim:
        case data::TotalWidth::ownRules:
            break;
    }
}

void Presentation::showModule() {
    f_.Text1(measure::chainWidth).setVisible(false);
    f_.txtModulo.setVisible(true);
    f_.txtModulo.setEnabled(false);
    show(false, {&f_.Text1(measure::roller), &f_.Label1(label::roller)});
    f_.Label1(label::chainWidth).setCaption("Modulo");
}

// Kept K-014: a new gear has the plain captions and fields until it has been saved and loaded.
void Presentation::msPresentarEngranaje() {
    const data::ProductType& type = f_.product();
    if (type.toothing != data::Toothing::gear) {
        return;
    }
    cboTipoPre_Click();
    showModule();
    f_.Frame2.setCaption(type.storedMeasuresCaption);
}

}  // namespace velmora::estimate
