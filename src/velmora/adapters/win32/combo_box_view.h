#pragma once
// A list, plain or editable.

#include "velmora/adapters/win32/control_view.h"

namespace velmora::win32 {

class ComboBoxView : public ControlView {
  public:
    ComboBoxView(ViewHost& host, screen::ComboBox& box, const screen::Layout& layout);

    std::vector<HWND> windows() const override { return {list_}; }
    HWND focusTarget() const override { return edit_ != nullptr ? edit_ : list_; }
    toolkit::Needs needs() const override;
    bool fillsWidth() const override { return digits_ == 0; }
    bool fillsHeight() const override { return false; }
    void useTheme() override;

    void update(screen::Property property) override;
    void updateAll() override;
    bool key(const KeyStroke& stroke) override;
    bool ownsKeys() const override;
    std::optional<LRESULT> message(HWND window, UINT message, WPARAM word, LPARAM value) override;
    void command(UINT code) override;
    HBRUSH colors(HDC dc) override;
    void drawItem(const DRAWITEMSTRUCT& item) override;
    void focusGained() override { updateColors(); }
    void focusLeft() override;

    /// Whether the list is open.
    bool isOpen() const;
    void open();

  protected:
    void updateColors() override;
    void placed() override;

  private:
    void bringItems();
    void bringChoice();
    void chosen();
    void edited();
    void paint() const;
    style::Rgb ground() const;
    std::wstring itemText(int index) const;

    screen::ComboBox& box_;
    int digits_;
    HWND list_;
    HWND edit_ = nullptr;  ///< of an editable list
    bool fromModel_ = false;
    bool itemsPending_ = false;
    bool choicePending_ = false;
};

}  // namespace velmora::win32
