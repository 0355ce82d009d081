#pragma once
// Native windows as the logic's screen: any form, rendered from its model and its Layout.

#include <exception>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "velmora/platform/screen/screen.h"

struct HINSTANCE__;
struct HWND__;

namespace velmora::win32 {

class FormWindow;
class SmoothLines;

/// One per thread that shows forms. Windows are modal to all other windows of the thread, those of the host included.
/// Not to be created or destroyed while a DLL is being loaded or unloaded.
class Win32Screen : public screen::Screen {
  public:
    /// `module`: the program or DLL that holds this code; its manifest (resource 2) gives the controls their look.
    explicit Win32Screen(HINSTANCE__* module);
    ~Win32Screen() override;

    void showModal(screen::Form& form) override;
    screen::Answer show(const screen::MessageBox& box) override;
    std::optional<std::size_t> search(const screen::SearchWindow& window) override;
    void setPointer(screen::Pointer pointer) override;
    void tellWork(std::string_view text) override;
    /// Input of the user is held back meanwhile.
    void processEvents() override;
    std::unique_ptr<screen::Progress> progress(std::string_view title) override;

    /// Runs after every action of the user on a form, once its errors have been shown and no other action on the same
    /// form is under way.
    void onActionEnded(std::function<void()> listener) { actionEnded_ = std::move(listener); }
    void actionEnded();

    /// Shows the sheet of the keys of a form; nothing for the sheet itself.
    void showKeys(const screen::Form& form);
    /// Shows the box of an error that no handler has caught.
    void showError(std::exception_ptr error);
    /// Number of boxes and windows shown so far; used to detect whether an action has opened one.
    int boxesShown() const { return boxesShown_; }
    /// The topmost form; nullptr when none is shown.
    FormWindow* top() const { return windows_.empty() ? nullptr : windows_.back(); }
    /// The owner of the next modal window; nullptr when there is none.
    HWND__* topWindow() const;
    /// Shows the hourglass if the logic wants it; false when the pointer is the plain one.
    bool showBusyPointer() const;

  private:
    std::unique_ptr<SmoothLines> smoothLines_;
    std::vector<FormWindow*> windows_;
    int boxesShown_ = 0;
    bool hourglass_ = false;
    std::function<void()> actionEnded_;
    bool tellingEnd_ = false;
};

}  // namespace velmora::win32
