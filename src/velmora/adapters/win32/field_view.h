#pragma once
// A text field of one line or several: text written both by the model and by the user.

#include <string>

#include "velmora/adapters/win32/control_view.h"
#include "velmora/platform/toolkit/field_ground.h"
#include "velmora/platform/toolkit/field_typing.h"

namespace velmora::win32 {

/// The ground of a field, as 0xRRGGBB; `behind` where it has none of its own.
style::Rgb groundColor(const screen::Control& control, screen::Role role, style::Rgb behind);

struct FieldBorder {
    style::Rgb color;
    int width;  ///< pixels at 100 %
};
/// Amber while the field has a warning, else that of the focus or the plain one.
FieldBorder borderOf(const screen::Control& control, bool focused);

class FieldView : public ControlView, protected toolkit::TextEditor {
  public:
    FieldView(ViewHost& host, screen::TextBox& box, const screen::Layout& layout);

    std::vector<HWND> windows() const override { return {edit_}; }
    HWND focusTarget() const override { return edit_; }
    toolkit::Needs needs() const override;
    bool fillsWidth() const override { return digits_ == 0; }
    bool fillsHeight() const override { return stretched_; }
    void draw(Canvas& canvas) override;
    void useTheme() override;

    void update(screen::Property property) override;
    void updateAll() override;
    bool key(const KeyStroke& stroke) override;
    bool pressed() override;
    std::optional<LRESULT> message(HWND window, UINT message, WPARAM word, LPARAM value) override;
    std::wstring toolTip() const override;
    void command(UINT code) override;
    HBRUSH colors(HDC dc) override;
    void focusGained() override;
    void focusLeft() override;

    /// The text as it stands in the field while it has no focus.
    std::wstring paintedText() const;

  protected:
    void insert(char32_t character) override;
    void erase() override;
    void breakLine() override;
    void updateColors() override;
    void placed() override;

  private:
    HFONT font() const;
    screen::Role role() const;
    /// Copies the model's text to the window.
    void bringText();
    void edited();
    /// What the field takes of a text that was not typed; it is written in place of the selection.
    void insertFiltered(const std::string& text);
    void showScrollBar() const;
    void paint() const;
    Box inner() const;

    screen::TextBox& box_;
    screen::Role role_;
    int digits_;
    int lines_;
    bool stretched_;
    bool severalLines_;
    bool right_;
    int decimals_;
    HWND edit_;
    bool fromModel_ = false;
    bool filtered_ = false;  ///< what the window receives now has passed the filter
};

}  // namespace velmora::win32
