#pragma once
// The drawing of the piece with its measures.

#include "velmora/adapters/win32/control_view.h"
#include "velmora/platform/screen/sketch.h"

namespace velmora::win32 {

class SketchView : public ControlView {
  public:
    /// A width in the layout fixes the least size, in digits and lines of text; without one it suits the main form.
    SketchView(ViewHost& host, screen::Sketch& sketch, const screen::Layout& layout);
    ~SketchView() override;

    std::vector<HWND> windows() const override;
    toolkit::Needs needs() const override;
    bool fillsWidth() const override { return true; }
    bool fillsHeight() const override { return true; }
    void update(screen::Property property) override;
    bool key(const KeyStroke&) override { return false; }
    void setAccessibleName(const std::wstring& name) override;

    screen::Sketch& sketch() const { return sketch_; }
    /// To be called when a value label's text or visibility has changed.
    void labelChanged();

  private:
    class Paper;
    void paint(Canvas& canvas, const Box& area) const;

    screen::Sketch& sketch_;
    int digits_;
    int lines_;
    std::unique_ptr<Paper> paper_;
};

}  // namespace velmora::win32
