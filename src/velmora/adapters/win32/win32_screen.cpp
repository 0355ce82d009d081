#include "velmora/adapters/win32/win32_screen.h"

#include <utility>

#include "velmora/adapters/win32/canvas.h"
#include "velmora/adapters/win32/form_window.h"
#include "velmora/adapters/win32/message_dialog.h"
#include "velmora/adapters/win32/message_loop.h"
#include "velmora/adapters/win32/progress_window.h"
#include "velmora/adapters/win32/search_dialog.h"
#include "velmora/adapters/win32/text.h"
#include "velmora/platform/toolkit/error_box.h"
#include "velmora/platform/toolkit/keys_form.h"

namespace velmora::win32 {

namespace {

/// Shows the plain pointer under a box even when the interrupted work shows the hourglass.
class PlainPointer {
  public:
    explicit PlainPointer(bool& hourglass) : hourglass_(hourglass), before_(std::exchange(hourglass, false)) {
        if (before_) {
            SetCursor(LoadCursorW(nullptr, IDC_ARROW));
        }
    }
    ~PlainPointer() { hourglass_ = before_; }
    PlainPointer(const PlainPointer&) = delete;
    PlainPointer& operator=(const PlainPointer&) = delete;

  private:
    bool& hourglass_;
    bool before_;
};

}  // namespace

Win32Screen::Win32Screen(HINSTANCE__*) : smoothLines_(std::make_unique<SmoothLines>()) {}

Win32Screen::~Win32Screen() {
    setPointer(screen::Pointer::normal);
}

HWND Win32Screen::topWindow() const {
    const HWND active = ownerOfModal();
    return active != nullptr || windows_.empty() ? active : windows_.back()->handle();
}

void Win32Screen::showModal(screen::Form& form) {
    FormWindow window(*this, form, topWindow());
    windows_.push_back(&window);
    ++boxesShown_;
    try {
        window.runModal();
    } catch (...) {
        windows_.pop_back();
        throw;
    }
    windows_.pop_back();
}

screen::Answer Win32Screen::show(const screen::MessageBox& box) {
    ++boxesShown_;
    const PlainPointer pointer(hourglass_);
    return MessageDialog(box, topWindow()).ask();
}

std::optional<std::size_t> Win32Screen::search(const screen::SearchWindow& window) {
    ++boxesShown_;
    const PlainPointer pointer(hourglass_);
    SearchDialog dialog(window, topWindow());
    const std::optional<std::size_t> row = dialog.choose();
    if (dialog.failure()) {
        std::rethrow_exception(dialog.failure());
    }
    return row;
}

void Win32Screen::setPointer(screen::Pointer pointer) {
    const bool wanted = pointer == screen::Pointer::hourglass;
    if (wanted != hourglass_) {
        hourglass_ = wanted;
        SetCursor(LoadCursorW(nullptr, wanted ? IDC_WAIT : IDC_ARROW));
    }
}

bool Win32Screen::showBusyPointer() const {
    if (hourglass_) {
        SetCursor(LoadCursorW(nullptr, IDC_WAIT));
    }
    return hourglass_;
}

void Win32Screen::tellWork(std::string_view text) {
    if (FormWindow* window = top()) {
        window->form().status().tellWork(text);
    }
}

void Win32Screen::processEvents() {
    runPending(Input::heldBack);
}

std::unique_ptr<screen::Progress> Win32Screen::progress(std::string_view title) {
    return std::make_unique<ProgressWindow>(toWide(title), topWindow());
}

void Win32Screen::actionEnded() {
    if (!actionEnded_ || tellingEnd_) {
        return;
    }
    tellingEnd_ = true;
    actionEnded_();
    tellingEnd_ = false;
}

void Win32Screen::showKeys(const screen::Form& form) {
    if (dynamic_cast<const toolkit::KeysForm*>(&form) == nullptr) {
        toolkit::KeysForm keys(form);
        showModal(keys);
    }
}

void Win32Screen::showError(std::exception_ptr error) {
    show(toolkit::errorBox(std::move(error)));
}

}  // namespace velmora::win32
