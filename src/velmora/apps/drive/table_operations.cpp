#include "table_operations.h"

#include <algorithm>

#include "velmora/adapters/script/command.h"
#include "velmora/apps/workshop_data/table_form.h"

namespace velmora::drive {

void addTables(script::Operations& operations, session::Session& session, platform::Desk& desk) {
    operations.open["tabla"] = [&session, &desk](const script::Operations::Arguments& arguments) {
        const auto tables = workshop_data::allTables();
        const auto named = std::ranges::find_if(tables, [&](const workshop_data::Table& table) {
            return arguments.size() == 1 && table.fileName == arguments.front().text;
        });
        if (named == tables.end()) {
            throw script::WrongScript("no such table");
        }
        workshop_data::TableForm form(session, desk, *named, [&desk](const std::string& title, const std::string&) {
            return desk.services.openFileDialog({.title = title, .filter = {}});
        });
        desk.screen.showModal(form);
    };
}

}  // namespace velmora::drive
