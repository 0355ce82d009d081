#pragma once
// A text on the form; as the caption of a field it is placed beside the field.

#include "velmora/adapters/win32/control_view.h"

namespace velmora::win32 {

class LabelView : public ControlView {
  public:
    /// `digits`: width reserved for the text, whatever its contents; 0 reserves none.
    LabelView(ViewHost& host, screen::Label& label, screen::Role role = screen::Role::label, int digits = 0);

    toolkit::Needs needs() const override;
    bool fillsWidth() const override { return true; }
    bool fillsHeight() const override { return false; }
    void draw(Canvas& canvas) override;
    void useTheme() override;
    void update(screen::Property property) override;
    void updateAll() override;
    bool key(const KeyStroke&) override { return false; }
    /// The field that this label is the caption of.
    void setField(ControlView& field) { field_ = &field; }
    /// For the caption of a total.
    void setTitle() { title_ = true; }
    void setAccessibleName(const std::wstring&) override {}

  private:
    HFONT font() const;
    void widen();

    screen::Label& label_;
    screen::Role role_;
    int digits_;
    bool title_ = false;
    int width_ = 0;
    int height_ = 0;
    ControlView* field_ = nullptr;
};

}  // namespace velmora::win32
