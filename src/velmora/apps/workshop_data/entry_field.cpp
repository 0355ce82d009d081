#include "velmora/apps/workshop_data/entry_field.h"

#include <algorithm>
#include <utility>

#include "velmora/apps/workshop_data/cell_text.h"

namespace velmora::workshop_data {

namespace {

namespace lay = screen::layout;

/// Digits; the room that is left goes to texts and names by their share.
constexpr int shareOfTexts = 3;

std::string captionOf(const Column& column) {
    return std::string(column.caption) + (column.kind == Kind::reference ? " (F1)" : "");
}

}  // namespace

EntryField::EntryField(screen::Form& form, const Column& column, int index, session::KestraUtil& util,
                       std::function<void()> changed)
    : column_(column), changed_(std::move(changed)) {
    switch (column.kind) {
        case Kind::choice:
            makeList(form, index);
            break;
        case Kind::flag:
        case Kind::presence:
            makeBox(form, index);
            break;
        case Kind::text:
        case Kind::wholeNumber:
        case Kind::number:
        case Kind::reference:
            makeText(form, index, util);
            break;
    }
    control_->setToolTip(column.explanation);
    control_->setHint(column.explanation);
}

void EntryField::makeText(screen::Form& form, int index, session::KestraUtil& util) {
    text_ = std::make_unique<screen::TextBox>(form, "txtCampo", index);
    text_->onChange = [this] { tellChange(); };
    text_->onGotFocus = [this, &util] { util.EntrarCampo(*text_); };
    text_->onLostFocus = [this, &util] { util.SalirCampo(*text_); };
    if (isNumber(column_)) {
        text_->onKeyPress = [this, &util](screen::KeyPress& key) {
            util.TeclaCampo(*text_, key, column_.kind == Kind::wholeNumber);
        };
    }
    if (column_.kind == Kind::reference) {
        name_ = std::make_unique<screen::TextBox>(form, "txtNombre", index);
        name_->setLocked(true);
        name_->setTabStop(false);
    }
    control_ = text_.get();
}

void EntryField::makeList(screen::Form& form, int index) {
    list_ = std::make_unique<screen::ComboBox>(form, "cboCampo", index);
    list_->onClick = [this] { tellChange(); };
    control_ = list_.get();
}

void EntryField::makeBox(screen::Form& form, int index) {
    box_ = std::make_unique<screen::CheckBox>(form, "chkCampo", index);
    box_->setCaption(column_.caption);
    box_->onClick = [this] { tellChange(); };
    control_ = box_.get();
}

void EntryField::tellChange() const {
    if (!showing_) {
        changed_();
    }
}

std::string EntryField::text() const {
    if (text_) {
        return text_->text();
    }
    if (list_) {
        return list_->text();
    }
    return box_->checked() ? std::string(yesText) : unticked_;
}

void EntryField::show(const std::string& text, const References& references) {
    showing_ = true;
    if (text_) {
        text_->setText(text);
        nameReference(references);
    } else if (list_) {
        list_->clear();
        for (const Choice& choice : column_.choices) {
            list_->addItem(choice.words);
        }
        // A stored number that the list does not have, or nothing yet.
        if (std::ranges::find(list_->items(), text) == list_->items().end()) {
            list_->addItem(text);
        }
        list_->setText(text);
    } else {
        unticked_ = text.empty() ? std::string() : std::string(noText);
        box_->setChecked(text == yesText);
    }
    showing_ = false;
}

void EntryField::enter(const std::string& text) {
    if (text_) {
        text_->setText(text);
    }
}

void EntryField::nameReference(const References& references) {
    if (name_) {
        name_->setText(references.nameOf(*column_.reference, text_->text()));
    }
}

std::vector<screen::Layout> EntryField::layout() const {
    if (box_) {
        return {lay::plain(*box_)};
    }
    screen::Layout field = lay::field(captionOf(column_), *control_, column_.width).above();
    field.right = isNumber(column_);
    field.decimals = column_.decimals;
    field.unit = column_.unit;
    field.stretch = column_.width == 0 ? shareOfTexts : 0;
    std::vector<screen::Layout> parts{std::move(field)};
    if (name_) {
        parts.push_back(lay::field(std::string(column_.reference->nameCaption), *name_)
                            .as(screen::Role::calculated)
                            .above()
                            .stretched());
    }
    return parts;
}

}  // namespace velmora::workshop_data
