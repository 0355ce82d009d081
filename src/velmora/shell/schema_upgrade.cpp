#include "velmora/shell/schema_upgrade.h"

#include <array>
#include <set>
#include <span>
#include <string>
#include <string_view>

#include "velmora/data/schema.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::shell {
namespace {

// Kept K-281: some blanks are doubled, and each definition ends in one. Required as it is; the statements are compared
// to the letter.
struct NewColumn {
    std::string_view name;        ///< trimmed, in upper case
    std::string_view definition;  ///< exact text
};

constexpr auto columnsOfPardpi = std::to_array<NewColumn>({
    {.name = "PARDPI_CRE", .definition = "[PARDPI_CRE] [bit] NOT NULL DEFAULT 0 WITH VALUES "},
});

constexpr auto columnsOfDpi = std::to_array<NewColumn>({
    {.name = "DPI_MODULO", .definition = "[Dpi_Modulo] [float] NOT NULL  DEFAULT 0 WITH VALUES "},
    {.name = "DPI_HERRAMIENTA",
     .definition = "[DPI_HERRAMIENTA] [nvarchar] (15) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '' WITH VALUES "},
    {.name = "DPI_ACOPLA", .definition = "[Dpi_Acopla] [int] NOT NULL DEFAULT 0 WITH VALUES "},
    {.name = "DPI_EXTRA",
     .definition = "[DPI_EXTRA] [nvarchar] (200) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '' WITH VALUES "},
    {.name = "DPI_PROTEX",
     .definition = "[DPI_ProTex] [nvarchar] (35) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '' WITH VALUES "},
});

void showFailure(screen::Screen& screen, std::string_view table) {
    screen.show({.text = "Error Grave. No fué posible actualizar la tabla " + std::string(table),
                 .icon = screen::Icon::critical});
}

/// True when the statement ran; a refusal shows the table's message.
bool runUpgrade(sql::Connection& connection, screen::Screen& screen, std::string_view statement,
                std::string_view table) {
    runtime::ErrorTrap trap;
    trap([&] { connection.execute(statement); });
    if (trap.failed()) {
        showFailure(screen, table);
    }
    return !trap.failed();
}

/// The definitions of the columns that the probed table lacks, joined by commas.
std::string missingColumns(const sql::Recordset& probe, std::span<const NewColumn> wanted) {
    std::set<std::string, std::less<>> present;
    for (const sql::Column& column : probe.columns()) {
        present.insert(runtime::UCase(runtime::Trim(column.name)));
    }
    std::string list;
    for (const NewColumn& column : wanted) {
        if (!present.contains(column.name)) {
            list += (list.empty() ? "" : ",") + std::string(column.definition);
        }
    }
    return list;
}

void addMissingColumns(sql::Connection& connection, screen::Screen& screen, std::string_view probe,
                       std::string_view table, std::span<const NewColumn> wanted) {
    // The probe's rows are released before the table is altered.
    const std::string list = missingColumns(connection.execute(probe), wanted);
    if (!list.empty()) {
        runUpgrade(connection, screen, "ALTER TABLE " + std::string(table) + " ADD " + list, table);
    }
}

bool isEngMissing(sql::Connection& connection) {
    runtime::ErrorTrap trap;
    trap([&] { connection.execute("Select top 1 * from ENG"); });
    return trap.failed() && trap.error()->number() == sql::provider::missingTable;
}

}  // namespace

void msActualizarPARDPI(sql::Connection& connection, screen::Screen& screen) {
    addMissingColumns(connection, screen, "Select top 1 * from PARDPI", "PARDPI", columnsOfPardpi);
}

void msActualizarDPI(sql::Connection& connection, screen::Screen& screen) {
    addMissingColumns(connection, screen, "Select top 1 * from dpi", "DPI", columnsOfDpi);
}

bool FnActualizarBD(sql::Connection& connection, screen::Screen& screen) {
    msActualizarPARDPI(connection, screen);
    msActualizarDPI(connection, screen);
    if (!isEngMissing(connection)) {
        return true;
    }
    // Kept K-280: when creating the key fails, the table stays without it; later starts do not try again, because the
    // table exists. Creating only the key could fail on rows inserted since.
    return runUpgrade(connection, screen, data::createEng, "ENG") &&
           runUpgrade(connection, screen, data::addKeyOfEng, "ENG");
}

}  // namespace velmora::shell
