#include "velmora/apps/workshop_data/row_check.h"

#include <algorithm>
#include <utility>

#include "velmora/apps/workshop_data/cell_text.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::workshop_data {

namespace {

/// Checks one column; adds its text and, unless it stays as it is, a write or a fault.
void checkCell(const Table& table, const References& references, std::size_t position, const std::string& text,
               const StoredRow* existing, RowCheck& check) {
    const Column& column = table.columns[position];
    if (existing != nullptr && text == existing->texts[position]) {
        check.texts.push_back(text);
        return;
    }
    const ReadText result = read(table, column, text, references);
    if (const auto* refusal = std::get_if<Refusal>(&result)) {
        check.texts.push_back(text);
        check.faults.push_back({.column = position, .reason = refusal->reason});
        return;
    }
    const auto& value = std::get<sql::Value>(result);
    check.texts.push_back(shown(column, value, references));
    if (existing == nullptr || check.texts.back() != existing->texts[position]) {
        check.writes.push_back({.column = position, .value = value});
    }
}

}  // namespace

RowCheck checkRow(const Table& table, const References& references, const GivenTexts& given,
                  const StoredRow* existing) {
    RowCheck check;
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        const std::string& text = given[i]              ? *given[i]
                                  : existing != nullptr ? existing->texts[i]
                                                        : std::string(table.columns[i].onNew);
        checkCell(table, references, i, text, existing, check);
    }
    if (check.faults.empty() && !check.writes.empty() && table.rule != nullptr) {
        if (std::string reason = table.rule(check.texts, references); !reason.empty()) {
            check.faults.push_back({.column = table.columns.size(), .reason = std::move(reason)});
        }
    }
    return check;
}

std::string keyOf(const Table& table, const RowTexts& texts) {
    std::string key;
    for (const std::string_view column : table.key) {
        const std::string part = runtime::UCase(runtime::Trim(texts[positionOf(table, column)]));
        if (part.empty()) {
            return {};
        }
        key += part + '\x01';
    }
    return key;
}

std::string shownKey(const Table& table, const RowTexts& texts) {
    std::string key;
    for (const std::string_view column : table.key) {
        key += (key.empty() ? "" : " / ") + texts[positionOf(table, column)];
    }
    return key;
}

}  // namespace velmora::workshop_data
