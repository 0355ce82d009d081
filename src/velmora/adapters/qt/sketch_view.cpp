#include "velmora/adapters/qt/sketch_view.h"

#include <QPainter>

#include "velmora/adapters/painting/sketch_painter.h"
#include "velmora/adapters/qt/text.h"
#include "velmora/adapters/qt/theme.h"

namespace velmora::qt {

class SketchView::Canvas : public QWidget {
  public:
    Canvas(const SketchView& view, const screen::Layout& layout, QWidget* parent)
        : QWidget(parent), view_(view), digits_(layout.width), lines_(layout.lines) {
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    }
    QSize sizeHint() const override { return digits_ > 0 ? givenSize() : QSize(380, 300); }
    QSize minimumSizeHint() const override { return digits_ > 0 ? givenSize() : QSize(240, 180); }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        view_.paint(painter, rect());
    }

  private:
    QSize givenSize() const {
        return {fontMetrics().horizontalAdvance(QLatin1Char('0')) * digits_, fontMetrics().lineSpacing() * lines_};
    }

    const SketchView& view_;
    int digits_;
    int lines_;
};

SketchView::SketchView(ViewHost& host, screen::Sketch& sketch, const screen::Layout& layout, QWidget* parent)
    : ControlView(host, sketch), sketch_(sketch), canvas_(new Canvas(*this, layout, parent)) {
    labelChanged();
}

void SketchView::update(screen::Property property) {
    if (property == screen::Property::drawing) {
        labelChanged();
    } else {
        ControlView::update(property);
    }
}

void SketchView::labelChanged() {
    canvas_->setAccessibleDescription(toQt(toolkit::spokenMeasures(sketch_)));
    canvas_->update();
}

void SketchView::paint(QPainter& painter, const QRect& canvas) const {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QColor(theme::groupBorder));
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(QRectF(canvas).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
    try {
        const screen::Drawing drawing = sketch_.drawing();
        const toolkit::LabelTexts labels = toolkit::labelTextsOf(sketch_);
        painting::SketchPainter(painter, drawing, labels).paint(canvas);
    } catch (...) {
        host().reportLater(std::current_exception());
    }
}

}  // namespace velmora::qt
