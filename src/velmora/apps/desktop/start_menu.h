#pragma once
// The menu of the start window: one table of its entries.

#include <functional>
#include <string>
#include <vector>

#include "velmora/platform/screen/control.h"

namespace velmora::desktop {

class StartForm;

/// One line of a menu.
struct MenuEntry {
    std::string key;      ///< identifies it to scripts and tests
    std::string caption;  ///< with "&" before its letter
    std::function<void(StartForm&)> perform;
    /// Whether it is shown at all on this database; empty: always.
    std::function<bool(const StartForm&)> isOffered = {};
};

struct Menu {
    std::string caption;
    std::vector<MenuEntry> entries;
};

/// All menus of the start window in their order.
const std::vector<Menu>& startMenus();

/// What the bar of this window shows: each menu with the entries that are offered; a menu without any is left out.
std::vector<screen::Toolbar::Item> menuItems(const StartForm& start);

/// Performs the entry with this key; nothing for an unknown one.
void performEntry(StartForm& start, const std::string& key);

}  // namespace velmora::desktop
