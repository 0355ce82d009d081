#include "velmora/apps/workshop_data/import_plan.h"

#include <algorithm>
#include <optional>
#include <unordered_map>
#include <utility>

#include "velmora/apps/workshop_data/cell_text.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::workshop_data {

namespace {

bool isSameName(std::string_view one, std::string_view other) {
    return runtime::UCase(runtime::Trim(one)) == runtime::UCase(runtime::Trim(other));
}

std::optional<std::size_t> columnNamed(const Table& table, std::string_view name) {
    const auto found = std::ranges::find_if(table.columns, [&](const Column& column) {
        return isSameName(column.caption, name) || isSameName(column.name, name);
    });
    return found == table.columns.end() ? std::nullopt
                                        : std::optional(static_cast<std::size_t>(found - table.columns.begin()));
}

/// Makes one plan.
class Planner {
  public:
    Planner(const Table& table, const std::vector<StoredRow>& stored, const References& references)
        : table_(table), references_(references) {
        for (const StoredRow& row : stored) {
            stored_.emplace(keyOf(table, row.texts), &row);
        }
    }

    ImportPlan make(const CsvContent& file) {
        if (file.fault) {
            refuseFile(file.fault->line, file.fault->reason);
        } else if (file.records.empty()) {
            refuseFile(1, "El archivo está vacío.");
        } else if (readHeading(file.records.front())) {
            std::for_each(file.records.begin() + 1, file.records.end(),
                          [this](const CsvRecord& record) { plan(record); });
        }
        return std::move(plan_);
    }

  private:
    void refuseFile(std::size_t line, std::string reason, std::string column = {}) {
        plan_.faults.push_back(
            {.line = line, .key = {}, .column = std::move(column), .text = {}, .reason = std::move(reason)});
    }

    bool readHeading(const CsvRecord& heading) {
        if (heading.values.size() == 1 && heading.values.front().find_first_of(",\t") != std::string::npos) {
            refuseFile(heading.line, "Las columnas deben ir separadas por punto y coma (;).");
            return false;
        }
        for (const std::string& name : heading.values) {
            const auto column = columnNamed(table_, name);
            if (!column) {
                refuseFile(heading.line, "columna desconocida", runtime::Trim(name));
            } else if (std::ranges::find(heading_, column) != heading_.end()) {
                refuseFile(heading.line, "la columna está dos veces", runtime::Trim(name));
            }
            heading_.push_back(column);
        }
        for (const std::string_view key : table_.key) {
            const std::size_t position = positionOf(table_, key);
            if (std::ranges::find(heading_, std::optional(position)) == heading_.end()) {
                refuseFile(heading.line, "falta la columna", std::string(table_.columns[position].caption));
            }
        }
        return plan_.faults.empty();
    }

    void plan(const CsvRecord& record) {
        PlannedRow row{.line = record.line, .key = {}, .check = {}};
        if (record.values.size() != heading_.size()) {
            refuse(row, "",
                   "tiene " + countText(record.values.size()) + " valores, y la cabecera " +
                       countText(heading_.size()) + " columnas");
        } else {
            planValues(record, row);
        }
        plan_.rows.push_back(std::move(row));
    }

    void planValues(const CsvRecord& record, PlannedRow& row) {
        GivenTexts given(table_.columns.size());
        for (std::size_t i = 0; i < heading_.size(); ++i) {
            given[*heading_[i]] = record.values[i];
        }
        // The key is compared as it will be stored: "0201" is machine 201.
        const RowTexts texts = checkRow(table_, references_, given, nullptr).texts;
        const std::string key = keyOf(table_, texts);
        const auto found = stored_.find(key);
        const StoredRow* existing = found == stored_.end() || key.empty() ? nullptr : found->second;
        if (existing != nullptr) {
            takeStoredKey(*existing, given);
        }
        row.key = shownKey(table_, texts);
        row.check = checkRow(table_, references_, given, existing);
        for (const CellFault& fault : row.check.faults) {
            const bool ofColumn = fault.column < table_.columns.size();
            refuse(row, ofColumn ? std::string(table_.columns[fault.column].caption) : std::string(), fault.reason);
            plan_.faults.back().text = ofColumn ? row.check.texts[fault.column] : std::string();
        }
        refuseSecond(key, row);
        if (row.check.faults.empty()) {
            decide(existing, row);
        }
    }

    // The key found the row, so a difference in capitals or blanks is none.
    void takeStoredKey(const StoredRow& existing, GivenTexts& given) const {
        for (const std::string_view column : table_.key) {
            const std::size_t position = positionOf(table_, column);
            given[position] = existing.texts[position];
        }
    }

    void refuseSecond(const std::string& key, PlannedRow& row) {
        if (key.empty()) {
            return;
        }
        const auto [first, isFirst] = lines_.emplace(key, row.line);
        if (!isFirst) {
            std::string reason = "está dos veces: ya está en la línea " + countText(first->second);
            row.check.faults.push_back({.column = table_.columns.size(), .reason = reason});
            refuse(row, "", std::move(reason));
        }
    }

    static void decide(const StoredRow* existing, PlannedRow& row) {
        if (existing == nullptr) {
            row.fate = Fate::added;
            return;
        }
        row.fate = row.check.writes.empty() ? Fate::equal : Fate::changed;
        if (row.fate == Fate::changed) {
            row.existing = *existing;
        }
    }

    void refuse(const PlannedRow& row, std::string column, std::string reason) {
        plan_.faults.push_back(
            {.line = row.line, .key = row.key, .column = std::move(column), .text = {}, .reason = std::move(reason)});
    }

    const Table& table_;
    const References& references_;
    std::unordered_map<std::string, const StoredRow*> stored_;
    std::unordered_map<std::string, std::size_t> lines_;
    std::vector<std::optional<std::size_t>> heading_;
    ImportPlan plan_;
};

}  // namespace

std::size_t ImportPlan::count(Fate fate) const {
    return static_cast<std::size_t>(std::ranges::count(rows, fate, &PlannedRow::fate));
}

ImportPlan planImport(const Table& table, const CsvContent& file, const std::vector<StoredRow>& stored,
                      const References& references) {
    return Planner(table, stored, references).make(file);
}

}  // namespace velmora::workshop_data
