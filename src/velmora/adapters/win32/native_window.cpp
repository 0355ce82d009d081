#include "velmora/adapters/win32/native_window.h"

#include <system_error>
#include <utility>

#include "velmora/adapters/win32/message_loop.h"
#include "velmora/adapters/win32/module.h"
#include "velmora/adapters/win32/text.h"

namespace velmora::win32 {

namespace {

/// The property under which a window holds its interception. Its own data may belong to a window of ours.
constexpr const wchar_t* interceptionProperty = L"VelmoraInterception";

}  // namespace

NativeWindow::~NativeWindow() {
    destroy();
}

void NativeWindow::create(const std::wstring& title, DWORD style, DWORD extendedStyle, HWND parent, const Box& box) {
    const CreationScope scope;
    CreateWindowExW(extendedStyle, windowClass(), title.c_str(), style, box.left, box.top, box.width, box.height,
                    parent, nullptr, ownModule(), this);
    if (handle_ == nullptr) {
        throw std::system_error(static_cast<int>(GetLastError()), std::system_category(), "CreateWindowEx");
    }
}

void NativeWindow::destroy() {
    if (handle_ != nullptr) {
        SetWindowLongPtrW(handle_, GWLP_USERDATA, 0);
        DestroyWindow(handle_);
        handle_ = nullptr;
    }
}

LRESULT NativeWindow::receive(UINT message, WPARAM word, LPARAM value) {
    return DefWindowProcW(handle_, message, word, value);
}

LRESULT CALLBACK NativeWindow::procedure(HWND window, UINT message, WPARAM word, LPARAM value) {
    if (message == WM_NCCREATE) {
        auto* self = static_cast<NativeWindow*>(reinterpret_cast<CREATESTRUCTW*>(value)->lpCreateParams);
        self->handle_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
    }
    auto* self = reinterpret_cast<NativeWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self == nullptr) {
        return DefWindowProcW(window, message, word, value);
    }
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        self->handle_ = nullptr;
        return DefWindowProcW(window, message, word, value);
    }
    try {
        return self->receive(message, word, value);
    } catch (...) {
        keepFault(std::current_exception());
        return 0;
    }
}

HWND createControl(const wchar_t* className, const std::wstring& text, DWORD style, HWND parent) {
    const CreationScope scope;
    const HWND control = CreateWindowExW(0, className, text.c_str(), style | WS_CHILD, 0, 0, 0, 0, parent, nullptr,
                                         ownModule(), nullptr);
    if (control == nullptr) {
        throw std::system_error(static_cast<int>(GetLastError()), std::system_category(), fromWide(className));
    }
    return control;
}

Interception::Interception(HWND window, Handler handler) : window_(window), handler_(std::move(handler)) {
    SetPropW(window_, interceptionProperty, this);
    own_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Interception::procedure)));
}

Interception::~Interception() {
    if (window_ != nullptr) {
        SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(own_));
        RemovePropW(window_, interceptionProperty);
    }
}

LRESULT Interception::passOn(UINT message, WPARAM word, LPARAM value) const {
    return CallWindowProcW(own_, window_, message, word, value);
}

LRESULT CALLBACK Interception::procedure(HWND window, UINT message, WPARAM word, LPARAM value) {
    auto* self = static_cast<Interception*>(GetPropW(window, interceptionProperty));
    if (self == nullptr) {
        return DefWindowProcW(window, message, word, value);
    }
    if (message == WM_NCDESTROY) {
        const WNDPROC own = self->own_;
        self->window_ = nullptr;
        RemovePropW(window, interceptionProperty);
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(own));
        return CallWindowProcW(own, window, message, word, value);
    }
    try {
        if (const std::optional<LRESULT> result = self->handler_(message, word, value)) {
            return *result;
        }
    } catch (...) {
        keepFault(std::current_exception());
        return 0;
    }
    return CallWindowProcW(self->own_, window, message, word, value);
}

std::wstring textOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    const int units = GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(units));
    return text;
}

Box clientBox(HWND window) {
    RECT room{};
    GetClientRect(window, &room);
    return {.width = room.right, .height = room.bottom};
}

void moveTo(HWND window, const Box& box) {
    RECT now{};
    GetWindowRect(window, &now);
    MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&now), 2);
    const Box before{.left = now.left, .top = now.top, .width = now.right - now.left, .height = now.bottom - now.top};
    if (before != box) {
        SetWindowPos(window, nullptr, box.left, box.top, box.width, box.height, SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

POINT pointOf(LPARAM value) {
    return {static_cast<short>(LOWORD(value)), static_cast<short>(HIWORD(value))};
}

}  // namespace velmora::win32
