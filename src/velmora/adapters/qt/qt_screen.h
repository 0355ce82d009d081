#pragma once
// The desktop as the logic's screen: real windows for any form, rendered from its model and its Layout.

#include <exception>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "velmora/platform/screen/screen.h"

class QTranslator;
class QWidget;

namespace velmora::qt {

class FormWindow;
class WindowMemory;

/// Needs a QApplication, to which it applies the theme.
class QtScreen : public screen::Screen {
  public:
    QtScreen();
    ~QtScreen() override;

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

    /// Shows the sheet of all keys of a form.
    void showKeys(const screen::Form& form);

    /// Places of windows and widths of columns are kept here from now on; without it they are forgotten.
    void remember(std::unique_ptr<WindowMemory> memory);
    WindowMemory* memory() const { return memory_.get(); }

    /// Shows the box of an error that no handler has caught.
    void showError(std::exception_ptr error);
    /// Number of boxes and search windows shown so far; used to detect whether an action has opened one.
    int boxesShown() const { return boxesShown_; }
    /// The topmost window; nullptr when no form is shown.
    FormWindow* top() const { return windows_.empty() ? nullptr : windows_.back(); }
    QWidget* topWidget() const;
    /// The forms that are shown, the topmost last.
    std::vector<screen::Form*> forms() const;

  private:
    std::unique_ptr<QTranslator> texts_;
    std::vector<FormWindow*> windows_;
    int boxesShown_ = 0;
    bool hourglass_ = false;
    std::function<void()> actionEnded_;
    bool tellingEnd_ = false;
    std::unique_ptr<WindowMemory> memory_;
};

}  // namespace velmora::qt
