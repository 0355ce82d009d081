#include "velmora/platform/screen/control.h"

#include <algorithm>

#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/screen/form.h"

namespace velmora::screen {

namespace {
constexpr long invalidPropertyValue = 380;
constexpr long readOnlyProperty = 383;
}  // namespace

Control::Control(Form& form, std::string name, int index) : form_(form), name_(std::move(name)), index_(index) {
    form_.add(*this);
}

Control::~Control() {
    form_.remove(*this);
}

std::string Control::fullName() const {
    return index_ == noIndex ? name_ : name_ + "(" + runtime::CStr(std::int64_t{index_}) + ")";
}

bool Control::isEnabled() const {
    return enabled_ && (frame_ != nullptr ? frame_->isEnabled() : form_.enabled());
}

bool Control::isVisible() const {
    return visible_ && (frame_ == nullptr || frame_->isVisible());
}

void Control::setFocus() {
    form_.setFocus(*this);
}

void Control::notify(Property property) {
    form_.notify(*this, property);
}

void TextBox::setText(std::string_view text) {
    if (text_ != text) {
        replaceText(text, std::nullopt);
    }
}

void TextBox::setNumber(double number) {
    if (number_ == number) {
        return;
    }
    const std::string text = runtime::CStr(number);
    if (text_ == text) {
        number_ = number;
    } else {
        replaceText(text, number);
    }
}

void TextBox::replaceText(std::string_view text, std::optional<double> number) {
    text_ = text;
    reading_.reset();
    number_ = number;
    selectAll_ = false;
    notify(Property::text);
    onChange();
}

void TextBox::selectAll() {
    selectAll_ = true;
    notify(Property::text);
}

const std::string& ComboBox::list(int i) const {
    static const std::string none;
    return i >= 0 && i < listCount() ? items_[static_cast<std::size_t>(i)] : none;
}

void ComboBox::addItem(std::string_view text) {
    items_.emplace_back(text);
    notify(Property::items);
}

void ComboBox::setList(int i, std::string_view text) {
    if (i < 0 || i >= listCount()) {
        runtime::raise(runtime::invalidProcedureCall);
    }
    items_[static_cast<std::size_t>(i)] = text;
    if (i == listIndex_) {
        text_ = text;
    }
    notify(Property::items);
}

void ComboBox::clear() {
    items_.clear();
    listIndex_ = -1;
    text_.clear();
    notify(Property::items);
}

void ComboBox::setListIndex(int index) {
    if (index < -1 || index >= listCount()) {
        runtime::raise(invalidPropertyValue);
    }
    listIndex_ = index;
    text_ = list(index);
    notify(Property::listIndex);
    onClick();
}

// Differs D-171: a list's second event is raised by a choice only. Opening the list and leaving it without a choice
// raises nothing, so that a value computed from the entry and then changed by hand is kept.
void ComboBox::choose(int index) {
    setListIndex(index);
    onChosen();
}

void ComboBox::setText(std::string_view text) {
    const auto found = std::ranges::find(items_, text);
    if (found == items_.end() && style_ == Style::list) {
        runtime::raise(readOnlyProperty);
    }
    listIndex_ = found == items_.end() ? -1 : static_cast<int>(found - items_.begin());
    text_ = text;
    notify(Property::listIndex);
}

void CheckBox::setChecked(bool checked) {
    if (checked_ != checked) {
        checked_ = checked;
        notify(Property::value);
        onClick();
    }
}

}  // namespace velmora::screen
