#pragma once
// The status line below a form: state of the record, message of the moment, last action.

#include "velmora/adapters/win32/canvas.h"
#include "velmora/platform/toolkit/status_text.h"

namespace velmora::win32 {

/// A child at the lower edge of the form's window. Its window text is the whole line, for assistive technology.
class StatusStrip : public NativeWindow {
  public:
    StatusStrip(HWND parent, const Theme& theme);

    void useTheme(const Theme& theme);
    void show(const toolkit::StatusText& text);
    /// In pixels.
    int height() const;

  protected:
    LRESULT receive(UINT message, WPARAM word, LPARAM value) override;

  private:
    void paint();

    const Theme* theme_;
    toolkit::StatusText text_;
};

}  // namespace velmora::win32
