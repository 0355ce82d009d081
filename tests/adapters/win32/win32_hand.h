#pragma once
// A person before real windows: a form is shown, a part of code plays the hand with keys and mouse as the system
// delivers them.

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/adapters/win32/form_window.h"
#include "velmora/adapters/win32/win32_screen.h"

namespace velmora::testing {

class Win32Hand {
  public:
    Win32Hand();
    ~Win32Hand();
    Win32Hand(const Win32Hand&) = delete;
    Win32Hand& operator=(const Win32Hand&) = delete;

    /// Shows the form, runs the user's part once the window stands, and unloads the form afterwards. False when the
    /// show ended before the part had run to its end.
    bool show(screen::Form& form, const std::function<void()>& user);

    /// Looks at the next box or window that opens above the form, and answers it. More than one may wait in line.
    void whenBoxOpens(const std::function<void(HWND)>& answer);
    bool boxesAwaited() const { return !answers_.empty(); }
    /// Called with each box that nobody awaits.
    void onOtherBox(std::function<void(HWND)> reader) { otherBox_ = std::move(reader); }

    win32::ControlView& viewOf(const screen::Control& control) const;
    /// What takes the keyboard and the mouse for a control of the form on top.
    HWND windowOf(const screen::Control& control) const;

    // Keys, to the window with the keyboard.
    void press(WORD virtualKey, std::optional<WORD> modifier = {});
    void type(std::u32string_view characters);

    // The mouse, on the screen.
    void click(const screen::Control& control);
    void doubleClick(const screen::Control& control);
    void clickAt(HWND window, POINT inside, int times = 1);
    void clickCell(const screen::DataGrid& grid, int row, int column);

    /// Handles what is pending as the form's own loop does.
    void pump();
    /// The same until the condition holds; false when it does not within a second.
    bool pumpUntil(const std::function<bool()>& condition);

    win32::Win32Screen& screen() { return *screen_; }

  private:
    static void CALLBACK tick(HWND window, UINT message, UINT_PTR id, DWORD time);
    void lookAround();

    std::unique_ptr<win32::Win32Screen> screen_;
    std::vector<std::function<void(HWND)>> answers_;
    std::function<void(HWND)> otherBox_;
    std::function<void()> part_;
    std::vector<HWND> seen_;
    bool looking_ = false;
    bool atBox_ = false;
    UINT_PTR timer_ = 0;
};

/// Under Wine, windows are placed without a window manager: where none runs, it would wait two seconds for each. Holds
/// from the next program on; does nothing on Windows. A program with a hand calls it as it starts.
void doWithoutWindowManager();

/// The text that a message box shows, without carriage returns.
std::string textOfBox(HWND box);
/// A key to a window, whatever has the keyboard.
void postKey(HWND window, WPARAM virtualKey);
/// The children of a window of a class.
std::vector<HWND> childrenOf(HWND window, const std::wstring& className);

}  // namespace velmora::testing
