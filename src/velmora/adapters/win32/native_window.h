#pragma once
// Base of our own windows, and the interception of messages of the system's controls.

#include <functional>
#include <optional>
#include <string>

#include "velmora/adapters/win32/windows_api.h"
#include "velmora/platform/toolkit/layout_places.h"

namespace velmora::win32 {

using Box = toolkit::Area;

/// A window of our own class. Exceptions of `receive` are kept and thrown again by the message loop, since they must
/// not pass through the system.
class NativeWindow {
  public:
    NativeWindow() = default;
    virtual ~NativeWindow();
    NativeWindow(const NativeWindow&) = delete;
    NativeWindow& operator=(const NativeWindow&) = delete;

    /// nullptr before `create` and after the window has been destroyed.
    HWND handle() const { return handle_; }

    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM word, LPARAM value);

  protected:
    /// Error: std::system_error when the system refuses.
    void create(const std::wstring& title, DWORD style, DWORD extendedStyle, HWND parent, const Box& box);
    void destroy();
    /// Answers a message; the base passes it to the system.
    virtual LRESULT receive(UINT message, WPARAM word, LPARAM value);

  private:
    HWND handle_ = nullptr;
};

/// Creates one of the system's controls as a child. Error: std::system_error when the system refuses.
HWND createControl(const wchar_t* className, const std::wstring& text, DWORD style, HWND parent);

/// Intercepts the messages of a control of the system for the lifetime of this object.
class Interception {
  public:
    /// A result ends the message; nullopt passes it on to the control.
    using Handler = std::function<std::optional<LRESULT>(UINT, WPARAM, LPARAM)>;

    Interception(HWND window, Handler handler);
    ~Interception();
    Interception(const Interception&) = delete;
    Interception& operator=(const Interception&) = delete;

    /// The control's own answer.
    LRESULT passOn(UINT message, WPARAM word = 0, LPARAM value = 0) const;

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM word, LPARAM value);

    HWND window_;
    Handler handler_;
    WNDPROC own_;
};

std::wstring textOf(HWND window);
Box clientBox(HWND window);
/// Moves the window inside its parent unless it is there already.
void moveTo(HWND window, const Box& box);
/// Coordinates of a mouse message.
POINT pointOf(LPARAM value);

}  // namespace velmora::win32
