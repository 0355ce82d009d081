#include "velmora/apps/desktop/start_menu.h"

#include <QCoreApplication>

#include "velmora/apps/desktop/about_form.h"
#include "velmora/apps/desktop/guide.h"
#include "velmora/apps/desktop/settings_tools.h"
#include "velmora/apps/desktop/start_form.h"
#include "velmora/apps/desktop/table_forms.h"
#include "velmora/platform/toolkit/keys_form.h"

namespace velmora::desktop {

namespace {

Menu fileMenu() {
    return {"&Archivo",
            {{.key = "copias",
              .caption = "&Copias de seguridad…",
              .perform = [](StartForm& start) { start.showCopies(); },
              .isOffered = [](const StartForm& start) { return start.hasCopies(); }},
             {.key = "actualizar",
              .caption = "&Actualizar la lista (F5)",
              .perform = [](StartForm& start) { start.refresh(); }},
             {.key = "otra", .caption = "&Otro taller…", .perform = [](StartForm& start) { start.leaveForAnother(); }},
             {.key = "salir", .caption = "Sa&lir (ESC)", .perform = [](StartForm& start) { start.unload(); }}}};
}

Menu dataMenu() {
    Menu menu{"&Datos",
              {{.key = "materiales", .caption = "Parámetros de &materiales…", .perform = [](StartForm& start) {
                    start.vmora().jShowParametros();
                }}}};
    const std::vector<MenuEntry> tables = tableEntries();
    menu.entries.insert(menu.entries.end(), tables.begin(), tables.end());
    return menu;
}

Menu settingsMenu() {
    return {"A&justes",
            {{.key = "ajustes",
              .caption = "&Ajustes…",
              .perform = [](StartForm& start) { showSettings(start.desk(), start.place()); },
              .isOffered = [](const StartForm& start) { return !start.place().isInMemory(); }}}};
}

Menu helpMenu() {
    return {
        "Ay&uda",
        {{.key = "guia",
          .caption = "&Guía de VELMORA",
          .perform =
              [](StartForm& start) { openGuide(start.desk(), QCoreApplication::applicationDirPath().toStdString()); }},
         {.key = "teclas",
          .caption = "&Teclas (Mayús+F1)…",
          .perform =
              [](StartForm& start) {
                  toolkit::KeysForm keys(start);
                  start.desk().screen.showModal(keys);
              }},
         {.key = "acerca", .caption = "&Acerca de VELMORA…", .perform = [](StartForm& start) {
              AboutForm about(aboutText(start.session().Connection(), start.place()));
              start.desk().screen.showModal(about);
          }}}};
}

bool isOffered(const MenuEntry& entry, const StartForm& start) {
    return !entry.isOffered || entry.isOffered(start);
}

}  // namespace

const std::vector<Menu>& startMenus() {
    static const std::vector<Menu> menus{fileMenu(), dataMenu(), settingsMenu(), helpMenu()};
    return menus;
}

std::vector<screen::Toolbar::Item> menuItems(const StartForm& start) {
    std::vector<screen::Toolbar::Item> items;
    for (const Menu& menu : startMenus()) {
        screen::Toolbar::Item item{.caption = menu.caption, .menu = {}};
        for (const MenuEntry& entry : menu.entries) {
            if (isOffered(entry, start)) {
                item.menu.push_back({.key = entry.key, .caption = entry.caption});
            }
        }
        if (!item.menu.empty()) {
            items.push_back(std::move(item));
        }
    }
    return items;
}

void performEntry(StartForm& start, const std::string& key) {
    for (const Menu& menu : startMenus()) {
        for (const MenuEntry& entry : menu.entries) {
            if (entry.key == key) {
                entry.perform(start);
                return;
            }
        }
    }
}

}  // namespace velmora::desktop
