#include "velmora/proposal/price_questions.h"

#include <algorithm>
#include <utility>

#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/proposal/field_names.h"
#include "velmora/proposal/price_explanation_form.h"

namespace velmora::proposal {

using estimate::TextBox;

void PriceQuestions::offerOnFields() {
    if (std::exchange(offeredFor_, &f_.product()) == &f_.product()) {
        return;
    }
    f_.forEachTextBox([this](TextBox& box) {
        if (explanations_.covers(box)) {
            box.explanation = [this, &box] {
                const auto figure = explanations_.of(box);
                return figure ? estimate::textOf(*figure) : std::string();
            };
            box.onExplain = [this, &box] { showWhy(&box); };
        } else {
            box.explanation = nullptr;
            box.onExplain = std::function<void()>();
        }
    });
}

void PriceQuestions::showWhy() {
    showWhy(dynamic_cast<const TextBox*>(f_.form.activeControl()));
}

void PriceQuestions::showWhy(const TextBox* field) {
    PriceExplanationForm form(desk_, subject(), explanations_.all());
    form.setLadder([this] { showLadder(); });
    if (canPrint()) {
        form.setPrinting([this, &form] { printFigures(form.figures()); });
    }
    if (field != nullptr) {
        form.choose(*field);
    }
    desk_.screen.showModal(form);
}

void PriceQuestions::showLadder() {
    PriceLadderForm form(subject(), basis());
    if (canPrint()) {
        form.setPrinting([this, &form](const PriceLadderForm::Wanted& wanted) { printLadder(form, wanted); },
                         !f_.proposal.isNew());
    }
    desk_.screen.showModal(form);
}

bool PriceQuestions::canPrint() const {
    const std::vector<std::string> known = desk_.components.progIds();
    return std::ranges::find(known, runtime::UCase(paper::SheetPrinting::progId)) != known.end();
}

std::unique_ptr<paper::SheetPrinting> PriceQuestions::printing() const {
    auto made = desk_.components.create<paper::SheetPrinting>(paper::SheetPrinting::progId);
    made->setMyBd(session_);
    return made;
}

std::string PriceQuestions::fileName(const char* paper) const {
    const std::string number =
        f_.proposal.isNew() ? std::string("nueva") : runtime::Format(f_.proposal.number(), "000000");
    return std::string(paper) + "_" + number + ".pdf";
}

void PriceQuestions::printFigures(const std::vector<estimate::Explanation>& figures) const {
    printing()->print({.fileName = fileName("PorQue"), .sheet = paper::explanationSheet(subject(), figures)});
}

void PriceQuestions::printLadder(const PriceLadderForm& form, const PriceLadderForm::Wanted& wanted) const {
    if (wanted.onCustomersSheet) {
        printing()->printCustomersSheet(f_.proposal.key(), {.saw = wanted.saw, .pieces = wanted.pieces});
    } else {
        printing()->print({.fileName = fileName("Escala"), .sheet = paper::ladderSheet(subject(), form.steps())});
    }
}

std::string PriceQuestions::subject() const {
    const std::string type(f_.product().name);
    return f_.proposal.isNew() ? type + ", propuesta nueva" : type + ", propuesta " + f_.proposal.number();
}

estimate::LadderBasis PriceQuestions::basis() const {
    const auto amount = [this](int field) { return estimate::numberOrZero(f_.txtPesu(field)); };
    return {.piece = amount(money::piece),
            .parts = {.material = amount(money::material),
                      .sawCharge = amount(money::sawCharge),
                      .labour = amount(money::labour),
                      .subcontracted = amount(money::subcontracted),
                      .sundries = amount(money::sundries)}};
}

}  // namespace velmora::proposal
