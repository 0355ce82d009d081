#pragma once
// Texts beside the mouse. They are asked for when they are shown, since some are worked out from the form's values.

#include <functional>
#include <string>

#include "velmora/adapters/win32/windows_api.h"

namespace velmora::win32 {

class ToolTips {
  public:
    /// `owner`: the form's window; `page`: the parent of the windows with texts, which receives the questions and hands
    /// them to `answer`; `width`: pixels from which a text is broken into lines.
    ToolTips(HWND owner, HWND page, int width);

    void add(HWND window);
    /// Takes away the text on show: the next one is asked for anew.
    void forget();
    /// Answers a notification of the page with the text for a window; false when it is none of these questions.
    bool answer(LPARAM notification, const std::function<std::wstring(HWND)>& textFor);

  private:
    HWND page_;
    HWND tips_;
    std::wstring told_;  ///< read by the system until the next question
};

}  // namespace velmora::win32
