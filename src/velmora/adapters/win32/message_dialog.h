#pragma once
// A message or a question.

#include <optional>
#include <vector>

#include "velmora/adapters/win32/canvas.h"
#include "velmora/adapters/win32/native_window.h"
#include "velmora/platform/screen/screen.h"

namespace velmora::win32 {

/// Handles Enter (the button with the keyboard, at first the default one), Esc (Cancel, else No, else OK) and the
/// letters of the buttons, with or without Alt.
class MessageDialog : public NativeWindow {
  public:
    MessageDialog(const screen::MessageBox& box, HWND owner);

    /// Shows the box and returns the answer once it has been given.
    screen::Answer ask();

  protected:
    LRESULT receive(UINT message, WPARAM word, LPARAM value) override;

  private:
    struct Button {
        HWND window;
        screen::Answer answer;
        char32_t letter;
    };

    void arrange();
    void paint();
    bool filter(const MSG& message);
    bool pressLetter(char32_t letter);
    void step(int by);
    std::size_t current() const;
    void take(screen::Answer answer) { answer_ = answer; }

    Theme theme_;
    HWND text_ = nullptr;
    HICON icon_ = nullptr;
    std::vector<Button> buttons_;
    std::size_t first_ = 0;
    screen::Answer escape_;
    Box iconBox_;
    std::optional<screen::Answer> answer_;
};

}  // namespace velmora::win32
