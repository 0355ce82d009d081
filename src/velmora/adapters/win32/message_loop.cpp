#include "velmora/adapters/win32/message_loop.h"

#include <utility>

namespace velmora::win32 {

namespace {

thread_local std::exception_ptr keptFault;

void throwFault() {
    if (keptFault) {
        std::rethrow_exception(std::exchange(keptFault, nullptr));
    }
}

/// The windows of the thread that take input beside the modal one.
struct OtherWindows {
    HWND modal;
    std::vector<HWND>& found;
};

BOOL CALLBACK addOtherWindow(HWND window, LPARAM value) {
    const auto& others = *reinterpret_cast<const OtherWindows*>(value);
    if (window != others.modal && IsWindowVisible(window) && IsWindowEnabled(window)) {
        others.found.push_back(window);
    }
    return TRUE;
}

void dispatch(const MSG& message, const MessageFilter& filter) {
    if (filter && filter(message)) {
        return;
    }
    TranslateMessage(&message);
    DispatchMessageW(&message);
    throwFault();
}

}  // namespace

void runUntil(const std::function<bool()>& done, const MessageFilter& filter) {
    while (!done()) {
        MSG message{};
        if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
            // The program is to end: its own loop sees this too.
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        dispatch(message, filter);
    }
}

void runPending(Input input, const MessageFilter& filter) {
    const UINT kinds =
        input == Input::dispatched ? PM_REMOVE : PM_REMOVE | PM_QS_PAINT | PM_QS_POSTMESSAGE | PM_QS_SENDMESSAGE;
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, kinds)) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        dispatch(message, filter);
    }
}

void keepFault(std::exception_ptr fault) {
    if (!keptFault) {
        keptFault = std::move(fault);
    }
}

Modality::Modality(HWND modal) : before_(GetActiveWindow()) {
    OtherWindows others{.modal = modal, .found = disabled_};
    EnumThreadWindows(GetCurrentThreadId(), &addOtherWindow, reinterpret_cast<LPARAM>(&others));
    for (const HWND window : disabled_) {
        EnableWindow(window, FALSE);
    }
}

Modality::~Modality() {
    for (const HWND window : disabled_) {
        EnableWindow(window, TRUE);
    }
    if (before_ != nullptr && IsWindow(before_)) {
        SetActiveWindow(before_);
    }
}

HWND ownerOfModal() {
    return GetActiveWindow();
}

}  // namespace velmora::win32
