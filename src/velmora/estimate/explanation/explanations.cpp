#include "velmora/estimate/explanation/explanations.h"

#include <algorithm>
#include <utility>

#include "velmora/estimate/explanation/figures.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::estimate {

namespace {

using explaining::Derivation;
using explaining::Figure;
using explaining::Ground;

const std::vector<Figure>& allFigures() {
    static const std::vector<Figure> rows = [] {
        explaining::Figures made;
        explaining::addWheelMeasures(made);
        explaining::addChainMeasures(made);
        explaining::addGearMeasures(made);
        explaining::addRackMeasures(made);
        explaining::addStockSizes(made);
        explaining::addWeights(made);
        explaining::addCuts(made);
        explaining::addMaterialLines(made);
        explaining::addPriceFigures(made);
        return made;
    }();
    return rows;
}

bool isOnShow(const FieldMap& f, const Figure& figure) {
    return figure.holdsFor(f.product());
}

/// The figure in a field of the form; nullptr when it has none.
const Figure* figureIn(const FieldMap& f, const screen::TextBox& field) {
    const std::vector<Figure>& rows = allFigures();
    const auto found = std::ranges::find_if(
        rows, [&](const Figure& figure) { return isOnShow(f, figure) && &figure.field.in(f) == &field; });
    return found == rows.end() ? nullptr : &*found;
}

bool isZero(const std::string& text) {
    return !runtime::IsNumeric(text) || runtime::CDbl(text) == 0;
}

void take(Explanation& explanation, Derivation derivation) {
    explanation.rule = std::move(derivation.rule);
    explanation.inputs = std::move(derivation.inputs);
    explanation.steps = std::move(derivation.steps);
    explanation.rounding = std::move(derivation.rounding);
    explanation.result = std::move(derivation.result);
}

Explanation explain(Ground& ground, const Figure& figure) {
    const TextBox& field = figure.field.in(ground.f);
    Explanation made{.field = &field,
                     .topic = figure.topic,
                     .title = figure.title,
                     .unit = figure.unit,
                     .shown = field.text(),
                     .rule = figure.rule,
                     .inputs = {},
                     .steps = {},
                     .rounding = {},
                     .result = {},
                     .obstacle = {}};
    std::vector<Derivation> derivations;
    try {
        derivations = figure.derive(ground);
    } catch (const runtime::RuntimeError& e) {
        made.obstacle = e.description();
    }
    const auto fits = [&](const Derivation& each) { return explaining::isSameFigure(made.shown, each.result); };
    const auto found = std::ranges::find_if(derivations, fits);
    if (found != derivations.end()) {
        take(made, std::move(*found));
        return made;
    }
    // Chosen C-420: which of several rules the last event applied is not recorded; a value that is that of none of them
    // for the present values counts as typed if the user has typed into the field, else as not calculated again.
    made.origin = ground.f.typed.contain(field) ? Origin::typed : isZero(made.shown) ? Origin::pending : Origin::kept;
    if (!derivations.empty()) {
        take(made, std::move(derivations.front()));
    } else if (made.origin == Origin::pending) {
        made.obstacle.clear();
    }
    return made;
}

/// Lets the derivations ask how the figures that go into them stand.
void letAskForOrigins(Ground& ground) {
    ground.setOriginOf([&ground](const TextBox& field) {
        const Figure* figure = figureIn(ground.f, field);
        return figure == nullptr ? std::nullopt : std::optional(explain(ground, *figure).origin);
    });
}

}  // namespace

std::vector<Explanation> Explanations::all() const {
    Ground ground(f_, sources_);
    letAskForOrigins(ground);
    std::vector<Explanation> explained;
    for (const Figure& figure : allFigures()) {
        if (isOnShow(f_, figure)) {
            explained.push_back(explain(ground, figure));
        }
    }
    std::ranges::stable_sort(explained, {}, &Explanation::topic);
    return explained;
}

std::optional<Explanation> Explanations::of(const screen::TextBox& field) const {
    const Figure* figure = figureIn(f_, field);
    if (figure == nullptr) {
        return std::nullopt;
    }
    Ground ground(f_, sources_);
    letAskForOrigins(ground);
    return explain(ground, *figure);
}

bool Explanations::covers(const screen::TextBox& field) const {
    return figureIn(f_, field) != nullptr;
}

}  // namespace velmora::estimate
