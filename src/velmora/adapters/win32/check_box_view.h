#pragma once
// A check box.

#include "velmora/adapters/win32/control_view.h"

namespace velmora::win32 {

class CheckBoxView : public ControlView {
  public:
    CheckBoxView(ViewHost& host, screen::CheckBox& box);

    std::vector<HWND> windows() const override { return {check_}; }
    HWND focusTarget() const override { return check_; }
    toolkit::Needs needs() const override;
    bool fillsWidth() const override { return false; }
    bool fillsHeight() const override { return false; }
    void useTheme() override;
    void update(screen::Property property) override;
    void updateAll() override;
    bool key(const KeyStroke& stroke) override;
    bool actsOnClick() const override { return true; }
    std::optional<LRESULT> message(HWND window, UINT message, WPARAM word, LPARAM value) override;
    void command(UINT code) override;
    HBRUSH colors(HDC dc) override;

  private:
    screen::CheckBox& box_;
    HWND check_;
};

}  // namespace velmora::win32
