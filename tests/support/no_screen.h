#pragma once
// A screen that nobody looks at: boxes are answered with OK or Yes.

#include <optional>

#include "velmora/platform/screen/screen.h"

namespace velmora::support {

class NoScreen final : public screen::Screen {
  public:
    void showModal(screen::Form& form) override { form.unload(); }
    screen::Answer show(const screen::MessageBox& box) override {
        return box.buttons == screen::Buttons::ok ? screen::Answer::ok : screen::Answer::yes;
    }
    std::optional<std::size_t> search(const screen::SearchWindow&) override { return std::nullopt; }
    void setPointer(screen::Pointer) override {}
    void processEvents() override {}
};

}  // namespace velmora::support
