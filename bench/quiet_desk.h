#pragma once
// A desk without a user: what a benchmark needs of one, without anything that would wait.

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "velmora/platform/desk.h"

#include "support/no_services.h"

namespace velmora::bench {

/// Answers every question with yes. A critical message ends the benchmark, because a refused operation would be a fast
/// one.
class QuietScreen final : public screen::Screen {
  public:
    void showModal(screen::Form& form) override { form.unload(); }
    screen::Answer show(const screen::MessageBox& box) override {
        if (box.icon == screen::Icon::critical) {
            throw std::runtime_error(box.text);
        }
        return box.buttons == screen::Buttons::ok ? screen::Answer::ok : screen::Answer::yes;
    }
    std::optional<std::size_t> search(const screen::SearchWindow&) override { return std::nullopt; }
    void setPointer(screen::Pointer) override {}
    void processEvents() override {}
};

class QuietDesk {
  public:
    platform::Desk& desk() { return desk_; }

  private:
    QuietScreen screen_;
    components::ComponentFactory components_;
    support::NoServices services_;
    system::SystemClock clock_;
    platform::Desk desk_{screen_, components_, services_, clock_};
};

}  // namespace velmora::bench
