#include "velmora/proposal/form_memory.h"

#include <utility>

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

FormMemory::FormMemory(estimate::FieldMap& fields)
    : f_(fields), typed_(fields.typed), disc_(*fields.rsMatDisco), hub_(*fields.rsMatCubo), rack_(*fields.rsMatCre) {
    controls_.reserve(f_.form.controls().size());
    for (screen::Control* control : f_.form.controls()) {
        controls_.push_back(shownBy(*control));
    }
}

FormMemory::Shown FormMemory::shownBy(screen::Control& control) {
    Shown shown{.control = &control,
                .enabled = control.enabled(),
                .visible = control.visible(),
                .tag = control.tag(),
                .toolTip = control.toolTip(),
                .backColor = control.backColor(),
                .foreColor = control.foreColor(),
                .text = {},
                .items = {}};
    if (const auto* box = dynamic_cast<const screen::TextBox*>(&control)) {
        shown.text = box->text();
    } else if (const auto* list = dynamic_cast<const screen::ComboBox*>(&control)) {
        shown.text = list->text();
        shown.items = list->items();
        shown.listIndex = list->listIndex();
    } else if (const auto* captioned = dynamic_cast<const screen::Captioned*>(&control)) {
        shown.text = captioned->caption();
        const auto* tick = dynamic_cast<const screen::CheckBox*>(&control);
        shown.checked = tick != nullptr && tick->checked();
    }
    return shown;
}

void FormMemory::putBack(const Shown& shown) {
    screen::Control& control = *shown.control;
    control.setEnabled(shown.enabled);
    control.setVisible(shown.visible);
    control.setTag(shown.tag);
    control.setToolTip(shown.toolTip);
    control.setBackColor(shown.backColor);
    control.setForeColor(shown.foreColor);
    if (auto* box = dynamic_cast<screen::TextBox*>(&control)) {
        proposal::putBack(*box, shown.text);
    } else if (auto* list = dynamic_cast<screen::ComboBox*>(&control)) {
        proposal::putBack(*list, shown.items, shown.listIndex, shown.text);
    } else if (auto* captioned = dynamic_cast<screen::Captioned*>(&control)) {
        captioned->setCaption(shown.text);
        if (auto* tick = dynamic_cast<screen::CheckBox*>(&control)) {
            proposal::putBack(*tick, shown.checked);
        }
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

}  // namespace velmora::proposal
