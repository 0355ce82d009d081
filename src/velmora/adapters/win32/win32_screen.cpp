#include "velmora/adapters/win32/win32_screen.h"

#include "velmora/adapters/win32/canvas.h"
#include "velmora/adapters/win32/message_dialog.h"
#include "velmora/adapters/win32/message_loop.h"
#include "velmora/platform/toolkit/error_box.h"

namespace velmora::win32 {

Win32Screen::Win32Screen(HINSTANCE__*) : smoothLines_(std::make_unique<SmoothLines>()) {}

Win32Screen::~Win32Screen() {
    setPointer(screen::Pointer::normal);
}

HWND Win32Screen::topWindow() const {
    return ownerOfModal();
}

void Win32Screen::showModal(screen::Form&) {
    runtime::raise(runtime::invalidProcedureCall);
}

screen::Answer Win32Screen::show(const screen::MessageBox& box) {
    ++boxesShown_;
    return MessageDialog(box, topWindow()).ask();
}

std::optional<std::size_t> Win32Screen::search(const screen::SearchWindow&) {
    runtime::raise(runtime::invalidProcedureCall);
}

void Win32Screen::setPointer(screen::Pointer) {}

void Win32Screen::processEvents() {
    runPending(Input::heldBack);
}

std::unique_ptr<screen::Progress> Win32Screen::progress(std::string_view) {
    return std::make_unique<screen::Progress>();
}

void Win32Screen::actionEnded() {
    if (!actionEnded_ || tellingEnd_) {
        return;
    }
    tellingEnd_ = true;
    actionEnded_();
    tellingEnd_ = false;
}

void Win32Screen::showError(std::exception_ptr error) {
    show(toolkit::errorBox(std::move(error)));
}

}  // namespace velmora::win32
