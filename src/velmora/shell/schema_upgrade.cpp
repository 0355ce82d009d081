#include "velmora/shell/schema_upgrade.h"

#include <set>
#include <string>
#include <string_view>

#include "velmora/data/schema.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::shell {
namespace {

void showFailure(screen::Screen& screen, std::string_view table) {
    screen.show({.text = "Error Grave. No fué posible actualizar la tabla " + std::string(table),
                 .icon = screen::Icon::critical});
}

bool runs(sql::Connection& connection, std::string_view statement) {
    runtime::ErrorTrap trap;
    trap([&] { connection.execute(statement); });
    return !trap.failed();
}

/// The definitions of the newer columns that the probed table lacks, joined by commas.
std::string missingColumns(const sql::Recordset& probe, const data::TableDefinition& table) {
    std::set<std::string> present;
    for (const sql::Column& column : probe.columns()) {
        present.insert(runtime::UCase(runtime::Trim(column.name)));
    }
    std::string list;
    for (const data::ColumnDefinition& column : table.columns) {
        if (!column.addedAs.empty() && !present.contains(runtime::UCase(column.name))) {
            list += (list.empty() ? "" : ",") + std::string(column.addedAs);
        }
    }
    return list;
}

// Differs D-301: of several programs that start at the same time on an older database, all but one are refused what
// another one has done meanwhile. The table is looked at again before a failure is told.
void addMissingColumns(sql::Connection& connection, screen::Screen& screen, std::string_view probe,
                       std::string_view name) {
    const data::TableDefinition& table = *data::findTable(name);
    // The probe's rows are released before the table is altered.
    const std::string list = missingColumns(connection.execute(probe), table);
    if (list.empty() || runs(connection, "ALTER TABLE " + std::string(name) + " ADD " + list)) {
        return;
    }
    runtime::ErrorTrap trap;
    trap([&] {
        if (!missingColumns(connection.execute(probe), table).empty()) {
            showFailure(screen, name);
        }
    });
    if (trap.failed()) {
        showFailure(screen, name);
    }
}

constexpr std::string_view probeOfGears = "Select top 1 * from ENG";

bool isEngMissing(sql::Connection& connection) {
    runtime::ErrorTrap trap;
    trap([&] { connection.execute(probeOfGears); });
    return trap.failed() && trap.error()->number() == sql::provider::missingTable;
}

}  // namespace

void msActualizarPARDPI(sql::Connection& connection, screen::Screen& screen) {
    addMissingColumns(connection, screen, "Select top 1 * from PARDPI", "PARDPI");
}

void msActualizarDPI(sql::Connection& connection, screen::Screen& screen) {
    addMissingColumns(connection, screen, "Select top 1 * from dpi", "DPI");
}

bool FnActualizarBD(sql::Connection& connection, screen::Screen& screen) {
    msActualizarPARDPI(connection, screen);
    msActualizarDPI(connection, screen);
    if (!isEngMissing(connection)) {
        return true;
    }
    if (!runs(connection, data::createEng)) {
        if (runs(connection, probeOfGears)) {
            return true;  // another program has created it, and adds its key
        }
        showFailure(screen, "ENG");
        return false;
    }
    // Kept K-280: when creating the key fails, the table stays without it; later starts do not try again, because the
    // table exists. Creating only the key could fail on rows inserted since.
    if (!runs(connection, data::addKeyOfEng)) {
        showFailure(screen, "ENG");
        return false;
    }
    return true;
}

}  // namespace velmora::shell
