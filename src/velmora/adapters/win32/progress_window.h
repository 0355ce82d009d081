#pragma once
// Progress of a long operation, with a Cancel button. It appears only when the operation takes long.

#include <memory>
#include <string>

#include "velmora/adapters/win32/windows_api.h"
#include "velmora/platform/screen/screen.h"

namespace velmora::win32 {

class ProgressWindow final : public screen::Progress {
  public:
    /// Appears after `delay` milliseconds at the earliest.
    ProgressWindow(std::wstring title, HWND owner, unsigned delay = 1000);
    ~ProgressWindow() override;

    /// Handles pending messages; keys and mouse only once the window has appeared: it is modal, so actions on other
    /// windows wait.
    void show(std::string_view text, std::optional<double> fraction) override;
    bool cancelled() override;

    /// nullptr until it has appeared.
    HWND window() const;

  private:
    class Dialog;

    std::wstring title_;
    HWND owner_;
    unsigned delay_;
    unsigned long long started_;
    unsigned long long lastShown_;
    std::unique_ptr<Dialog> dialog_;
};

}  // namespace velmora::win32
