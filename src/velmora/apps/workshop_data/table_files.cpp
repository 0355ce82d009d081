#include "velmora/apps/workshop_data/table_files.h"

#include <utility>
#include <variant>

#include "velmora/apps/workshop_data/import_form.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/screen/busy.h"
#include "velmora/platform/system/file_path.h"

namespace velmora::workshop_data {

namespace {

constexpr const char* filter = "CSV (*.csv)|*.csv|Todos (*.*)|*.*";
constexpr const char* tableChanged =
    "Otro usuario ha cambiado la tabla mientras tanto. No se ha grabado nada: se vuelve a comprobar el archivo.";

std::string nameOf(const std::string& path) {
    return system::fileText(system::filePath(path).filename());
}

}  // namespace

void TableFiles::refuse(const std::string& words) const {
    desk_.screen.show({.text = words, .icon = screen::Icon::critical, .title = std::string(store_.table().title)});
}

std::string TableFiles::importFile() {
    const auto path =
        desk_.services.openFileDialog({.title = "Importar: " + std::string(store_.table().title), .filter = filter});
    if (!path) {
        return {};
    }
    const auto bytes = readFile(*path);
    if (const auto* refusal = std::get_if<Refusal>(&bytes)) {
        refuse(refusal->reason);
        return {};
    }
    try {
        return importContent(contentOf(std::get<std::string>(bytes)), nameOf(*path));
    } catch (const runtime::RuntimeError& error) {
        refuse("No se ha grabado nada.\n\n" + error.description());
        return {};
    }
}

std::string TableFiles::importContent(const CsvContent& content, const std::string& fileName) {
    for (;;) {
        const ImportPlan plan = planNow(store_, content);
        ImportForm form(store_.table(), plan, fileName);
        desk_.screen.showModal(form);
        if (!form.isWanted()) {
            return {};
        }
        const auto progress = desk_.screen.progress("Importar");
        const screen::Hourglass waiting(desk_.screen);
        const Imported outcome = importNow(session_.Connection(), store_, content, plan, *progress);
        if (outcome == Imported::all) {
            return fileName + ": " + countText(plan.count(Fate::added)) + " nuevas, " +
                   countText(plan.count(Fate::changed)) + " cambiadas";
        }
        if (outcome == Imported::cancelled) {
            return {};
        }
        desk_.screen.show({.text = tableChanged, .icon = screen::Icon::exclamation});
    }
}

std::string TableFiles::exportFile() {
    const std::string title = "Exportar: " + std::string(store_.table().title);
    const auto path = chooseTarget_(title, std::string(store_.table().fileName) + ".csv");
    if (!path) {
        return {};
    }
    try {
        if (const std::string failure = writeFile(*path, csvOfTable(store_)); !failure.empty()) {
            refuse(failure);
            return {};
        }
    } catch (const runtime::RuntimeError& error) {
        refuse(error.description());
        return {};
    }
    return "Exportado a " + *path;
}

}  // namespace velmora::workshop_data
