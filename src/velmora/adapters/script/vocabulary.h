#pragma once
// The words of commands and what they denote on a form. Unknown words are WrongScript.

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "velmora/adapters/script/command.h"
#include "velmora/platform/screen/control.h"
#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/screen/form.h"
#include "velmora/platform/screen/screen.h"
#include "velmora/platform/toolkit/grid_keys.h"
#include "velmora/platform/toolkit/key_stroke.h"

namespace velmora::script {

/// The name by which a script refers to the topmost form itself.
inline constexpr std::string_view formName = "form";

[[noreturn]] void wrong(std::string_view what, std::string_view name);

/// A whole number from 0.
std::size_t position(const Argument& argument);
/// ENTER, F5 …, BACKSPACE.
toolkit::KeyStroke strokeNamed(std::string_view name);
/// UP, DOWN, HOME, END; nullopt for any other name.
std::optional<toolkit::RowMove> rowMoveNamed(std::string_view name);
/// The G of ALT+G; nullopt for any other name.
std::optional<char32_t> letterWithAlt(std::string_view name);
screen::Answer answerNamed(std::string_view name);
bool onOff(std::string_view text);

/// The value of a name in a table.
template <std::size_t count, typename Value>
Value valueNamed(const std::array<std::pair<std::string_view, Value>, count>& values, std::string_view name) {
    const auto found = std::ranges::find(values, name, &std::pair<std::string_view, Value>::first);
    if (found == values.end()) {
        wrong("nothing of that name is known here", name);
    }
    return found->second;
}

/// The control as the kind that a command needs; `kind` is the name of that kind in the error text.
template <typename Kind>
Kind& kindOf(screen::Control& control, std::string_view kind) {
    auto* wanted = dynamic_cast<Kind*>(&control);
    if (wanted == nullptr) {
        wrong("no " + std::string(kind), control.fullName());
    }
    return *wanted;
}

/// The control with this name on the topmost form that has one; nullptr when there is none.
screen::Control* findOn(const std::vector<screen::Form*>& forms, std::string_view name);

/// The index of a list's entry; nullopt when it is not in the list.
std::optional<int> entryOf(const screen::ComboBox& list, const Argument& entry);
/// The column by 0-based index (a bare whole number) or caption; of two with the same caption the first with buttons.
std::size_t columnOf(const screen::DataGrid& grid, const Argument& column);

bool hasMenuKey(const screen::Toolbar& bar, std::string_view key);
/// 1-based; a separator is no button.
bool hasButton(const screen::Toolbar& bar, int index);
/// Splits "Toolbar1(FICHERO)" into the name and the part in parentheses.
std::pair<std::string_view, std::string_view> withItem(std::string_view name);

}  // namespace velmora::script
