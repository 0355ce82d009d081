#pragma once
// The end of a script from within a form. It unwinds the program, but no exception crosses the component's border: it
// is remembered, and raised again where the script has called the component.

#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/screen/screen.h"
#include "velmora/platform/system/system.h"

namespace velmora::stories {

class RememberedEnding {
  public:
    /// Runs `work`; what is thrown and is no run-time error is remembered and passed on.
    template <typename Work>
    auto watch(Work&& work) {
        try {
            return std::forward<Work>(work)();
        } catch (const runtime::RuntimeError&) {
            throw;
        } catch (...) {
            remembered_ = std::current_exception();
            throw;
        }
    }

    /// Throws what was remembered, once.
    void raise() {
        if (const std::exception_ptr ending = std::exchange(remembered_, nullptr)) {
            std::rethrow_exception(ending);
        }
    }

  private:
    std::exception_ptr remembered_;
};

class WatchedScreen final : public screen::Screen {
  public:
    WatchedScreen(screen::Screen& target, RememberedEnding& ending) : target_(target), ending_(ending) {}
    void showModal(screen::Form& form) override {
        ending_.watch([&] { target_.showModal(form); });
    }
    screen::Answer show(const screen::MessageBox& box) override {
        return ending_.watch([&] { return target_.show(box); });
    }
    std::optional<std::size_t> search(const screen::SearchWindow& window) override {
        return ending_.watch([&] { return target_.search(window); });
    }
    void setPointer(screen::Pointer pointer) override { target_.setPointer(pointer); }
    void processEvents() override { target_.processEvents(); }
    std::unique_ptr<screen::Progress> progress(std::string_view title) override { return target_.progress(title); }

  private:
    screen::Screen& target_;
    RememberedEnding& ending_;
};

class WatchedServices final : public system::Services {
  public:
    WatchedServices(system::Services& target, RememberedEnding& ending) : target_(target), ending_(ending) {}
    std::string temporaryFolder() const override { return target_.temporaryFolder(); }
    std::optional<std::string> openFileDialog(const system::OpenFileRequest& request) override {
        return ending_.watch([&] { return target_.openFileDialog(request); });
    }
    int openWithAssociatedProgram(std::string_view path) override { return target_.openWithAssociatedProgram(path); }

  private:
    system::Services& target_;
    RememberedEnding& ending_;
};

}  // namespace velmora::stories
