#pragma once
// A button with its mnemonic.

#include "velmora/adapters/win32/control_view.h"

namespace velmora::win32 {

class ButtonView : public ControlView {
  public:
    ButtonView(ViewHost& host, screen::Button& button, screen::Role role);

    std::vector<HWND> windows() const override { return {push_}; }
    HWND focusTarget() const override { return push_; }
    toolkit::Needs needs() const override;
    bool fillsWidth() const override { return true; }
    bool fillsHeight() const override { return false; }
    void useTheme() override;
    void update(screen::Property property) override;
    void updateAll() override;
    bool key(const KeyStroke& stroke) override;
    bool actsOnClick() const override { return true; }
    std::optional<LRESULT> message(HWND window, UINT message, WPARAM word, LPARAM value) override;
    void command(UINT code) override;
    HBRUSH colors(HDC dc) override;
    void setAccessibleName(const std::wstring&) override {}  // the caption is the accessible name

  private:
    HFONT font() const { return role_ == screen::Role::total ? theme().titleFont() : theme().font(); }

    screen::Button& button_;
    screen::Role role_;
    HWND push_;
};

}  // namespace velmora::win32
