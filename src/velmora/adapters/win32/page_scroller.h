#pragma once
// Scrolls the controls of a form whose window is smaller than they need.

#include "velmora/adapters/win32/native_window.h"

namespace velmora::win32 {

class PageScroller {
  public:
    /// `window` has the scroll bars; `page`, its child, is moved below them.
    PageScroller(HWND window, HWND page) : window_(window), page_(page) {}

    /// Height at the lower edge of the window that the page leaves free, in pixels.
    void setFooter(int pixels) { footer_ = pixels; }
    /// The part of the window in which the page is seen.
    Box room() const;
    /// Gives the page the room that there is, at least what it needs, and shows a bar where it is more.
    void placePage(SIZE needed);
    /// What a scroll bar asks for (WM_VSCROLL, WM_HSCROLL); `step` pixels to a line.
    void follow(int bar, WPARAM request, int step);
    void scrollBy(int x, int y) { scrollTo(at_.x + x, at_.y + y); }
    /// Scrolls until a part of the page is seen, with so much beside it.
    void bringIntoView(const Box& part, int beside);

  private:
    void showBars(SIZE needed);
    void scrollTo(int x, int y);
    void movePage(int width, int height);

    HWND window_;
    HWND page_;
    int footer_ = 0;
    POINT at_{0, 0};
};

}  // namespace velmora::win32
