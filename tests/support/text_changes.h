#pragma once
// Every text that a control was given while somebody watched.

#include <string>
#include <vector>

#include "velmora/platform/screen/form.h"

namespace velmora::support {

/// Keeps what a text box is written while it lives.
class TextChanges final : public screen::FormObserver {
  public:
    TextChanges(screen::Form& form, const screen::Control& watched) : form_(form), watched_(watched) {
        form_.addObserver(*this);
    }
    ~TextChanges() override { form_.removeObserver(*this); }
    TextChanges(const TextChanges&) = delete;
    TextChanges& operator=(const TextChanges&) = delete;

    void controlChanged(screen::Control& control, screen::Property property) override {
        if (&control == &watched_ && property == screen::Property::text) {
            texts.push_back(dynamic_cast<screen::TextBox&>(control).text());
        }
    }
    void formChanged() override {}
    void focusMoved(screen::Control*) override {}

    /// Every text that was written, in order.
    std::vector<std::string> texts;

  private:
    screen::Form& form_;
    const screen::Control& watched_;
};

}  // namespace velmora::support
