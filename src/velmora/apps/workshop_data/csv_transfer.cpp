#include "velmora/apps/workshop_data/csv_transfer.h"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>
#include <utility>

#include "velmora/platform/sql/in_transaction.h"
#include "velmora/platform/system/file_path.h"

namespace velmora::workshop_data {

namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t largestFile = std::uintmax_t{64} * 1024 * 1024;
constexpr std::size_t rowsOfAStep = 100;

/// A row of a table that must not change while it is used.
void refuseUsed(const TableStore& store, ImportPlan& plan) {
    if (!store.table().fixedWhenUsed) {
        return;
    }
    for (PlannedRow& row : plan.rows) {
        const std::string uses =
            row.fate == Fate::changed ? store.usesOf(row.existing, row.check.writes) : std::string();
        if (!uses.empty()) {
            row.fate = Fate::refused;
            plan.faults.push_back(
                {.line = row.line, .key = row.key, .column = {}, .text = {}, .reason = "no se puede cambiar: " + uses});
        }
    }
}

/// Rows for which no own number is left.
void refuseBeyondLast(const TableStore& store, ImportPlan& plan) {
    auto room = store.roomLeft();
    if (!room) {
        return;
    }
    for (PlannedRow& row : plan.rows) {
        if (row.fate == Fate::added && --*room < 0) {
            row.fate = Fate::refused;
            plan.faults.push_back(
                {.line = row.line, .key = row.key, .column = {}, .text = {}, .reason = numbersUsedUp(store.table())});
        }
    }
}

void writeRow(const TableStore& store, const PlannedRow& row) {
    if (row.fate == Fate::added) {
        store.insert(row.check.writes);
    } else if (row.fate == Fate::changed) {
        store.update(row.existing, row.check.writes);
    }
}

}  // namespace

std::string csvOfTable(const TableStore& store) {
    std::vector<RowTexts> rows(1);
    for (const Column& column : store.table().columns) {
        rows.front().emplace_back(column.caption);
    }
    for (StoredRow& row : store.all(store.references())) {
        rows.push_back(std::move(row.texts));
    }
    return csvOf(rows);
}

CsvContent contentOf(const std::string& bytes) {
    const auto text = textOfBytes(bytes);
    if (!text) {
        return {.records = {},
                .fault = CsvFault{.line = 1,
                                  .reason = "El archivo no es un texto CSV. Desde la hoja de cálculo, guárdelo como "
                                            "«CSV UTF-8 (delimitado por punto y coma)»."}};
    }
    return parseCsv(*text);
}

ImportPlan planNow(const TableStore& store, const CsvContent& file) {
    const References references = store.references();
    ImportPlan plan = planImport(store.table(), file, store.all(references), references);
    refuseUsed(store, plan);
    refuseBeyondLast(store, plan);
    return plan;
}

Imported importNow(sql::Connection& connection, const TableStore& store, const CsvContent& file, const ImportPlan& plan,
                   screen::Progress& progress) {
    Imported outcome = Imported::all;
    sql::inTransaction(connection, [&] {
        if (planNow(store, file) != plan) {
            outcome = Imported::outdated;
            return false;
        }
        for (std::size_t i = 0; i < plan.rows.size(); ++i) {
            if (i % rowsOfAStep == 0) {
                progress.show("Importando…", static_cast<double>(i) / static_cast<double>(plan.rows.size()));
                if (progress.cancelled()) {
                    outcome = Imported::cancelled;
                    return false;
                }
            }
            writeRow(store, plan.rows[i]);
        }
        return true;
    });
    return outcome;
}

std::variant<std::string, Refusal> readFile(const std::string& path) {
    const fs::path file = system::filePath(path);
    std::error_code failure;
    const std::uintmax_t size = fs::file_size(file, failure);
    if (failure) {
        return Refusal{"No se puede leer el archivo:\n" + path + "\n\n" + failure.message()};
    }
    if (size > largestFile) {
        return Refusal{"El archivo es demasiado grande (más de 64 MB):\n" + path};
    }
    std::ifstream stream(file, std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(stream), {}};
    if (!stream) {
        return Refusal{"No se puede leer el archivo:\n" + path};
    }
    return bytes;
}

std::string writeFile(const std::string& path, const std::string& bytes) {
    const fs::path file = system::filePath(path);
    const fs::path partial = system::filePath(path + ".parcial");
    std::error_code failure;
    std::ofstream stream(partial, std::ios::binary | std::ios::trunc);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    if (stream) {
        fs::rename(partial, file, failure);
        if (!failure) {
            return {};
        }
    }
    const std::string reason = failure ? "\n\n" + failure.message() : "";
    fs::remove(partial, failure);
    return "No se puede escribir el archivo:\n" + path + reason;
}

}  // namespace velmora::workshop_data
