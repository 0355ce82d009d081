#include "velmora/proposal/form_memory.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <utility>

#include "velmora/platform/runtime/one_line.h"

namespace velmora::proposal {

namespace {

/// Removes an event's handler for the duration of its lifetime.
template <typename E>
class Silent {
  public:
    explicit Silent(E& event) : event_(event), handler_(std::exchange(event, E())) {}
    ~Silent() { event_ = std::move(handler_); }
    Silent(const Silent&) = delete;
    Silent& operator=(const Silent&) = delete;

  private:
    E& event_;
    E handler_;
};

void putBack(screen::TextBox& box, const std::string& text) {
    const Silent silent(box.onChange);
    box.setText(text);
}

void putBack(screen::CheckBox& box, bool checked) {
    const Silent silent(box.onClick);
    box.setChecked(checked);
}

void putBack(screen::ComboBox& list, const std::vector<std::string>& items, int listIndex, const std::string& text) {
    if (list.items() == items && list.listIndex() == listIndex && list.text() == text) {
        return;
    }
    const Silent silent(list.onClick);
    if (list.items() != items) {
        list.clear();
        for (const std::string& item : items) {
            list.addItem(item);
        }
    }
    list.setListIndex(listIndex);
    if (list.text() != text) {
        list.setText(text);
    }
}

void putBack(sql::ListenedRecordset& listened, const sql::Recordset& rows) {
    if (*listened == rows) {
        return;
    }
    const Silent silent(listened.onMoveComplete);
    listened = rows;
}

}  // namespace

namespace {

std::vector<std::string_view> linesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        lines.push_back(text.substr(0, end));
        text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
    }
    return lines;
}

/// For a text that is empty on most of the controls.
void copyUnlessEmpty(const std::string& from, std::string& to) {
    if (!from.empty()) {
        to = from;
    }
}

int wholeNumber(const std::string& text) {
    int number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

}  // namespace

FormMemory::FormMemory(estimate::FieldMap& fields)
    : f_(fields), typed_(fields.typed), disc_(*fields.rsMatDisco), hub_(*fields.rsMatCubo), rack_(*fields.rsMatCre) {
    controls_.reserve(f_.form.controls().size());
    for (screen::Control* control : f_.form.controls()) {
        remember(*control, controls_.emplace_back());
    }
}

void FormMemory::remember(screen::Control& control, Shown& shown) {
    shown.control = &control;
    shown.enabled = control.enabled();
    shown.visible = control.visible();
    shown.tabStop = control.tabStop();
    copyUnlessEmpty(control.tag(), shown.tag);
    copyUnlessEmpty(control.toolTip(), shown.toolTip);
    shown.backColor = control.backColor();
    shown.foreColor = control.foreColor();
    switch (control.holds()) {
        case screen::Holds::text:
            shown.text = static_cast<const screen::TextBox&>(control).text();
            break;
        case screen::Holds::entries: {
            const auto& list = static_cast<const screen::ComboBox&>(control);
            shown.text = list.text();
            shown.items = list.items();
            shown.listIndex = list.listIndex();
            break;
        }
        case screen::Holds::tick:
            shown.checked = static_cast<const screen::CheckBox&>(control).checked();
            [[fallthrough]];
        case screen::Holds::caption:
            shown.text = static_cast<const screen::Captioned&>(control).caption();
            break;
        case screen::Holds::nothing:
            break;
    }
}

void FormMemory::putBack(const Shown& shown) {
    screen::Control& control = *shown.control;
    control.setEnabled(shown.enabled);
    control.setVisible(shown.visible);
    control.setTabStop(shown.tabStop);
    control.setTag(shown.tag);
    control.setToolTip(shown.toolTip);
    control.setBackColor(shown.backColor);
    control.setForeColor(shown.foreColor);
    switch (control.holds()) {
        case screen::Holds::text:
            proposal::putBack(static_cast<screen::TextBox&>(control), shown.text);
            break;
        case screen::Holds::entries:
            proposal::putBack(static_cast<screen::ComboBox&>(control), shown.items, shown.listIndex, shown.text);
            break;
        case screen::Holds::tick: {
            auto& tick = static_cast<screen::CheckBox&>(control);
            tick.setCaption(shown.text);
            proposal::putBack(tick, shown.checked);
            break;
        }
        case screen::Holds::caption:
            static_cast<screen::Captioned&>(control).setCaption(shown.text);
            break;
        case screen::Holds::nothing:
            break;
    }
}

// Each control is a line of its name, followed by a line for each property: name, "=", value.
std::string FormMemory::written() const {
    std::string text;
    const auto line = [&](std::string_view name, const std::string& value) {
        text += std::string(name) + "=" + runtime::inOneLine(value) + "\n";
    };
    for (const Shown& shown : controls_) {
        text += "[" + shown.control->fullName() + "]\n";
        line("enabled", shown.enabled ? "1" : "0");
        line("visible", shown.visible ? "1" : "0");
        line("tabStop", shown.tabStop ? "1" : "0");
        line("checked", shown.checked ? "1" : "0");
        line("tag", shown.tag);
        line("toolTip", shown.toolTip);
        line("backColor", std::to_string(shown.backColor));
        line("foreColor", std::to_string(shown.foreColor));
        line("text", shown.text);
        line("listIndex", std::to_string(shown.listIndex));
        for (const std::string& item : shown.items) {
            line("item", item);
        }
        const auto* box = dynamic_cast<const screen::TextBox*>(shown.control);
        if (box != nullptr && typed_.contain(*box)) {
            line("typed", "1");
        }
    }
    return text;
}

void FormMemory::read(std::string_view text) {
    Shown* current = nullptr;
    typed_.forget();
    for (const std::string_view line : linesOf(text)) {
        if (line.starts_with('[') && line.ends_with(']')) {
            const std::string_view name = line.substr(1, line.size() - 2);
            const auto found =
                std::ranges::find_if(controls_, [&](const Shown& shown) { return shown.control->fullName() == name; });
            current = found == controls_.end() ? nullptr : &*found;
            if (current != nullptr) {
                current->items.clear();
            }
            continue;
        }
        const std::size_t equals = line.find('=');
        if (current == nullptr || equals == std::string_view::npos) {
            continue;
        }
        if (line.starts_with("typed=")) {
            if (const auto* box = dynamic_cast<const screen::TextBox*>(current->control)) {
                typed_.add(*box);
            }
            continue;
        }
        readProperty(*current, line.substr(0, equals), runtime::fromOneLine(line.substr(equals + 1)));
    }
    for (Shown& shown : controls_) {
        if (shown.listIndex < 0 || static_cast<std::size_t>(shown.listIndex) >= shown.items.size()) {
            shown.listIndex = -1;
        }
    }
}

void FormMemory::readProperty(Shown& shown, std::string_view name, const std::string& value) {
    struct Property {
        std::string_view name;
        void (*take)(Shown&, const std::string&);
    };
    static constexpr Property properties[] = {
        {"enabled", [](Shown& s, const std::string& v) { s.enabled = v == "1"; }},
        {"visible", [](Shown& s, const std::string& v) { s.visible = v == "1"; }},
        {"tabStop", [](Shown& s, const std::string& v) { s.tabStop = v == "1"; }},
        {"checked", [](Shown& s, const std::string& v) { s.checked = v == "1"; }},
        {"tag", [](Shown& s, const std::string& v) { s.tag = v; }},
        {"toolTip", [](Shown& s, const std::string& v) { s.toolTip = v; }},
        {"backColor", [](Shown& s, const std::string& v) { s.backColor = wholeNumber(v); }},
        {"foreColor", [](Shown& s, const std::string& v) { s.foreColor = wholeNumber(v); }},
        {"text", [](Shown& s, const std::string& v) { s.text = v; }},
        {"listIndex", [](Shown& s, const std::string& v) { s.listIndex = wholeNumber(v); }},
        {"item", [](Shown& s, const std::string& v) { s.items.push_back(v); }},
    };
    const auto* known = std::ranges::find(properties, name, &Property::name);
    if (known != std::end(properties)) {
        known->take(shown, value);
    }
}

void FormMemory::restore() const {
    proposal::putBack(f_.rsMatDisco, disc_);
    proposal::putBack(f_.rsMatCubo, hub_);
    proposal::putBack(f_.rsMatCre, rack_);
    for (const Shown& shown : controls_) {
        putBack(shown);
    }
    f_.typed = typed_;
    f_.invalidateSketches();
}

std::string writtenControl(std::string_view control, const std::string& text) {
    return "[" + std::string(control) + "]\ntext=" + runtime::inOneLine(text) + "\n";
}

std::string writtenText(std::string_view written, std::string_view control) {
    const std::string heading = "[" + std::string(control) + "]";
    bool within = false;
    for (const std::string_view line : linesOf(written)) {
        if (line.starts_with('[')) {
            within = line == heading;
        } else if (within && line.starts_with("text=")) {
            return runtime::fromOneLine(line.substr(5));
        }
    }
    return {};
}

}  // namespace velmora::proposal
