#pragma once
// The drawing of the piece with its measures.

#include "velmora/adapters/qt/control_view.h"
#include "velmora/platform/screen/sketch.h"

class QPainter;

namespace velmora::qt {

class SketchView : public ControlView {
  public:
    /// A width in the layout fixes the least size, in digits and lines of text; without one it suits the main form.
    SketchView(ViewHost& host, screen::Sketch& sketch, const screen::Layout& layout, QWidget* parent);

    QWidget& widget() override { return *canvas_; }
    std::vector<QWidget*> inputs() override { return {}; }
    void update(screen::Property property) override;
    bool key(const KeyStroke&) override { return false; }

    screen::Sketch& sketch() const { return sketch_; }
    /// To be called when a value label's text or visibility has changed.
    void labelChanged();

  private:
    class Canvas;
    void paint(QPainter& painter, const QRect& canvas) const;

    screen::Sketch& sketch_;
    QWidget* canvas_;
};

}  // namespace velmora::qt
