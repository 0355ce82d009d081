#include "velmora/apps/desktop/table_forms.h"

#include <memory>
#include <string>

#include "velmora/adapters/qt/save_dialog.h"
#include "velmora/apps/desktop/start_form.h"
#include "velmora/apps/workshop_data/table_form.h"

namespace velmora::desktop {

std::vector<MenuEntry> tableEntries() {
    std::vector<MenuEntry> entries;
    for (const workshop_data::Table& table : workshop_data::allTables()) {
        entries.push_back({.key = "tabla_" + std::string(table.fileName),
                           .caption = std::string(table.menu),
                           .perform =
                               [&table](StartForm& start) {
                                   workshop_data::TableForm form(start.session(), start.desk(), table,
                                                                 qt::chooseTarget);
                                   start.desk().screen.showModal(form);
                               },
                           .isOffered = [](const StartForm& start) { return start.hasCopies(); }});
    }
    return entries;
}

std::vector<WindowPicture> tablePictures(session::Session& session, platform::Desk& desk) {
    std::vector<WindowPicture> pictures;
    for (const workshop_data::Table& table : workshop_data::allTables()) {
        pictures.push_back({"tabla_" + std::string(table.fileName), [&session, &desk, &table] {
                                return std::make_unique<workshop_data::TableForm>(session, desk, table,
                                                                                  qt::chooseTarget);
                            }});
    }
    return pictures;
}

}  // namespace velmora::desktop
