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

void addMissingColumns(sql::Connection& connection, screen::Screen& screen, std::string_view probe,
                       std::string_view table) {
    // The probe's rows are released before the table is altered.
    const std::string list = missingColumns(connection.execute(probe), *data::findTable(table));
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
    // Kept K-280: when creating the key fails, the table stays without it; later starts do not try again, because the
    // table exists. Creating only the key could fail on rows inserted since.
    return runUpgrade(connection, screen, data::createEng, "ENG") &&
           runUpgrade(connection, screen, data::addKeyOfEng, "ENG");
}

}  // namespace velmora::shell
