#pragma once
// A group box with a title, drawn on the page.

#include "velmora/adapters/win32/control_view.h"

namespace velmora::win32 {

class FrameView : public ControlView {
  public:
    FrameView(ViewHost& host, screen::Frame& frame) : ControlView(host, frame), frame_(frame) {}

    toolkit::Needs needs() const override;
    bool fillsWidth() const override { return true; }
    bool fillsHeight() const override { return true; }
    void draw(Canvas& canvas) override;
    void update(screen::Property property) override;
    bool key(const KeyStroke&) override { return false; }
    void setAccessibleName(const std::wstring&) override {}

    /// From the edges of the group to what stands in it.
    static toolkit::GroupEdges edgesOf(const screen::Frame& frame, const Theme& theme);

  private:
    screen::Frame& frame_;
};

}  // namespace velmora::win32
