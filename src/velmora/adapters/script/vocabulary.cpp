#include "velmora/adapters/script/vocabulary.h"

#include "velmora/adapters/script/shown_text.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::script {

using namespace screen;

void wrong(std::string_view what, std::string_view name) {
    throw WrongScript(std::string(what) + ": " + std::string(name));
}

std::size_t position(const Argument& argument) {
    const auto number = wholeNumber(argument.text);
    if (!number || *number < 0) {
        wrong("no position", argument.text);
    }
    return static_cast<std::size_t>(*number);
}

toolkit::KeyStroke strokeNamed(std::string_view name) {
    static constexpr auto keys = std::to_array<std::pair<std::string_view, Key>>({{"ENTER", Key::enter},
                                                                                  {"ESC", Key::escape},
                                                                                  {"TAB", Key::tab},
                                                                                  {"DECIMAL", Key::padDecimal},
                                                                                  {"F1", Key::f1},
                                                                                  {"F2", Key::f2},
                                                                                  {"F3", Key::f3},
                                                                                  {"F4", Key::f4},
                                                                                  {"F5", Key::f5},
                                                                                  {"F6", Key::f6},
                                                                                  {"F7", Key::f7},
                                                                                  {"F8", Key::f8},
                                                                                  {"F9", Key::f9},
                                                                                  {"F12", Key::f12}});
    constexpr std::string_view control = "CTRL+";
    if (name.starts_with(control)) {
        const std::string_view rest = name.substr(control.size());
        toolkit::KeyStroke stroke =
            rest.size() == 1 ? toolkit::strokeTyping(static_cast<char32_t>(rest.front())) : strokeNamed(rest);
        stroke.control = true;
        return stroke;
    }
    if (name == "BACKSPACE") {
        return toolkit::strokeTyping(toolkit::backspace);
    }
    return toolkit::strokeOf(valueNamed(keys, name));
}

std::optional<toolkit::RowMove> rowMoveNamed(std::string_view name) {
    using toolkit::RowMove;
    static constexpr auto moves = std::to_array<std::pair<std::string_view, RowMove>>(
        {{"UP", RowMove::up}, {"DOWN", RowMove::down}, {"HOME", RowMove::first}, {"END", RowMove::last}});
    const auto found = std::ranges::find(moves, name, &std::pair<std::string_view, RowMove>::first);
    return found == moves.end() ? std::nullopt : std::optional(found->second);
}

std::optional<char32_t> letterWithAlt(std::string_view name) {
    constexpr std::string_view alt = "ALT+";
    if (!name.starts_with(alt)) {
        return std::nullopt;
    }
    const std::u32string letters = runtime::toCodePoints(name.substr(alt.size()));
    return letters.size() == 1 ? std::optional(letters.front()) : std::nullopt;
}

Answer answerNamed(std::string_view name) {
    static constexpr auto answers = std::to_array<std::pair<std::string_view, Answer>>(
        {{"yes", Answer::yes}, {"no", Answer::no}, {"cancel", Answer::cancel}, {"ok", Answer::ok}});
    return valueNamed(answers, name);
}

bool onOff(std::string_view text) {
    static constexpr auto states = std::to_array<std::pair<std::string_view, bool>>({{"on", true}, {"off", false}});
    return valueNamed(states, text);
}

Control* findOn(const std::vector<Form*>& forms, std::string_view name) {
    for (auto form = forms.rbegin(); form != forms.rend(); ++form) {
        if (Control* found = (*form)->find(name)) {
            return found;
        }
    }
    return nullptr;
}

// Chosen C-261: a bare whole number is an index, everything else the text of an entry; "12" in quotes is a text.
std::optional<int> entryOf(const ComboBox& list, const Argument& entry) {
    if (const auto index = wholeNumber(entry.text); index && !entry.quoted) {
        return index;
    }
    const auto found = std::ranges::find(list.items(), entry.text);
    return found == list.items().end() ? std::nullopt : std::optional(static_cast<int>(found - list.items().begin()));
}

std::size_t columnOf(const DataGrid& grid, const Argument& column) {
    const auto& columns = grid.columns();
    if (!column.quoted && wholeNumber(column.text)) {
        const std::size_t index = position(column);
        if (index >= columns.size()) {
            wrong("no such column", column.text);
        }
        return index;
    }
    const auto named = [&](const GridColumn& c) { return c.caption == column.text; };
    auto found = std::ranges::find_if(columns, [&](const GridColumn& c) { return named(c) && c.visible && c.button; });
    if (found == columns.end()) {
        found = std::ranges::find_if(columns, named);
    }
    if (found == columns.end()) {
        wrong("no such column", column.text);
    }
    return static_cast<std::size_t>(found - columns.begin());
}

bool hasMenuKey(const Toolbar& bar, std::string_view key) {
    return std::ranges::any_of(bar.items(), [&](const Toolbar::Item& item) {
        return std::ranges::find(item.menu, key, &Toolbar::MenuItem::key) != item.menu.end();
    });
}

bool hasButton(const Toolbar& bar, int index) {
    return index >= 1 && index <= static_cast<int>(bar.items().size()) &&
           !bar.items()[static_cast<std::size_t>(index - 1)].caption.empty();
}

std::pair<std::string_view, std::string_view> withItem(std::string_view name) {
    const auto opening = name.find('(');
    if (opening == std::string_view::npos || name.back() != ')') {
        wrong("no open form has a control of that name", name);
    }
    return {name.substr(0, opening), name.substr(opening + 1, name.size() - opening - 2)};
}

}  // namespace velmora::script
