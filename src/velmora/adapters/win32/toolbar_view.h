#pragma once
// A bar of buttons, some with a menu.

#include "velmora/adapters/win32/control_view.h"

namespace velmora::win32 {

class ToolbarView : public ControlView {
  public:
    ToolbarView(ViewHost& host, screen::Toolbar& bar);
    ~ToolbarView() override;

    std::vector<HWND> windows() const override;
    HWND focusTarget() const override;
    toolkit::Needs needs() const override;
    bool fillsWidth() const override { return true; }
    bool fillsHeight() const override { return false; }
    void useTheme() override;
    void update(screen::Property property) override;
    void updateAll() override;
    bool key(const KeyStroke& stroke) override;
    bool actsOnClick() const override { return true; }

    /// Presses an item, counted from 1: its click, or its menu.
    void press(int item);
    /// The button of an item; nullptr for a separator.
    HWND buttonOf(int item) const;

  protected:
    void placed() override;

  private:
    class Strip;
    void build();
    void openMenu(const screen::Toolbar::Item& item, HWND button);
    int buttonWidth(HWND button) const;
    void drawSeparators(HDC dc, int height) const;

    screen::Toolbar& bar_;
    std::unique_ptr<Strip> strip_;
    std::vector<HWND> buttons_;
};

}  // namespace velmora::win32
