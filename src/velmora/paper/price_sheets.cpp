#include "velmora/paper/price_sheets.h"

#include <algorithm>
#include <utility>

#include "velmora/platform/runtime/numbers.h"

namespace velmora::paper {

namespace {

constexpr const char* moneyMask = "#,##0.00";

Table ladderTable(std::span<const estimate::LadderStep> steps) {
    Table table{.title = "Precios según la cantidad",
                .columns = {{.caption = "Nº de piezas", .share = 1, .right = true},
                            {.caption = "Precio por pieza €", .share = 1.4, .right = true},
                            {.caption = "Importe total €", .share = 1.4, .right = true}}};
    for (const estimate::LadderStep& step : steps) {
        table.rows.push_back(
            {runtime::CStr(step.pieces), runtime::Format(step.piece, moneyMask), runtime::Format(step.lot, moneyMask)});
    }
    return table;
}

Table topicTable(estimate::Topic topic) {
    return {.title = std::string(wordsOf(topic)),
            .columns = {{.caption = "Cifra", .share = 1.3},
                        {.caption = "Valor", .share = 0.9, .right = true},
                        {.caption = "Por qué", .share = 4}}};
}

/// The lines behind the first, which is title and value.
std::string wordsBehindTheValue(const estimate::Explanation& figure) {
    std::string words;
    const std::vector<std::string> lines = linesOf(figure);
    for (std::size_t i = 1; i < lines.size(); ++i) {
        words += (words.empty() ? "" : "\n") + lines[i];
    }
    return words;
}

std::string shownValue(const estimate::Explanation& figure) {
    return figure.unit.empty() ? figure.shown : figure.shown + " " + figure.unit;
}

}  // namespace

Sheet explanationSheet(const std::string& subject, std::span<const estimate::Explanation> figures) {
    Sheet sheet{.title = "Por qué este precio", .name = "Por qué este precio", .heading = {{"Propuesta", subject}}};
    Table* table = nullptr;
    const estimate::Explanation* before = nullptr;
    for (const estimate::Explanation& figure : figures) {
        if (before == nullptr || before->topic != figure.topic) {
            table = &std::get<Table>(sheet.blocks.emplace_back(topicTable(figure.topic)));
        }
        table->rows.push_back({figure.title, shownValue(figure), wordsBehindTheValue(figure)});
        before = &figure;
    }
    return sheet;
}

Sheet ladderSheet(const std::string& subject, std::span<const estimate::LadderStep> steps) {
    return {.title = "Escala de precios",
            .name = "Escala de precios",
            .heading = {{"Propuesta", subject}},
            .blocks = {ladderTable(steps)}};
}

estimate::LadderBasis ladderBasis(const StoredProposal& p) {
    return {.piece = p.piece.value_or(0),
            .parts = {.material = p.material.value_or(0),
                      .sawCharge = p.saw.value_or(0),
                      .labour = p.labourAmount.value_or(0),
                      .subcontracted = p.subcontracted.value_or(0),
                      .sundries = p.others.value_or(0)}};
}

// Chosen C-422: the customer's sheet bears the ladder of the proposal as stored, like all its other prices, also while
// something else stands on the form; whether it does is asked in the ladder's window and stored nowhere.
void addLadder(Sheet& customersSheet, const StoredProposal& proposal, const LadderRequest& request) {
    const auto isFigures = [](const Block& block) { return std::holds_alternative<Figures>(block); };
    const auto prices = std::ranges::find_if(customersSheet.blocks, isFigures);
    const auto place = prices == customersSheet.blocks.end() ? prices : std::next(prices);
    customersSheet.blocks.insert(
        place, ladderTable(estimate::priceLadder(ladderBasis(proposal), request.saw, request.pieces)));
}

}  // namespace velmora::paper
