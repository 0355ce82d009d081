#include "velmora/adapters/win32/sketch_view.h"

#include "velmora/adapters/win32/sketch_painter.h"
#include "velmora/adapters/win32/text.h"

namespace velmora::win32 {

namespace {
constexpr double paperRadius = 3;
}

class SketchView::Paper : public NativeWindow {
  public:
    explicit Paper(const SketchView& view) : view_(view) { create({}, WS_CHILD, 0, view.host().page(), {}); }

  protected:
    LRESULT receive(UINT message, WPARAM word, LPARAM value) override {
        if (message == WM_ERASEBKGND) {
            return 1;
        }
        if (message != WM_PAINT) {
            return NativeWindow::receive(message, word, value);
        }
        PAINTSTRUCT job;
        HDC target = BeginPaint(handle(), &job);
        {
            const Box area = clientBox(handle());
            Canvas canvas(target, area);
            view_.paint(canvas, area);
        }
        EndPaint(handle(), &job);
        return 0;
    }

  private:
    const SketchView& view_;
};

SketchView::SketchView(ViewHost& host, screen::Sketch& sketch, const screen::Layout& layout)
    : ControlView(host, sketch),
      sketch_(sketch),
      digits_(layout.width),
      lines_(layout.lines),
      paper_(std::make_unique<Paper>(*this)) {
    labelChanged();
}

SketchView::~SketchView() = default;

std::vector<HWND> SketchView::windows() const {
    return {paper_->handle()};
}

toolkit::Needs SketchView::needs() const {
    if (digits_ > 0) {
        const int width = theme().textWidth(theme().font(), L"0") * digits_;
        const int height = theme().lineHeight(theme().font()) * lines_;
        return {.width = {width, width}, .height = {height, height}};
    }
    return {.width = {theme().scaled(240), theme().scaled(380)}, .height = {theme().scaled(180), theme().scaled(300)}};
}

void SketchView::update(screen::Property property) {
    if (property == screen::Property::drawing) {
        labelChanged();
    } else {
        ControlView::update(property);
    }
}

void SketchView::setAccessibleName(const std::wstring& name) {
    ControlView::setAccessibleName(name);
    labelChanged();
}

// The text of the window is what assistive technology reads of it: name and measures.
void SketchView::labelChanged() {
    const std::wstring measures = toWide(toolkit::spokenMeasures(sketch_));
    SetWindowTextW(paper_->handle(), (accessibleName() + (measures.empty() ? L"" : L": ") + measures).c_str());
    InvalidateRect(paper_->handle(), nullptr, FALSE);
}

void SketchView::paint(Canvas& canvas, const Box& area) const {
    canvas.fill(area, surroundings());
    canvas.frame(area, style::groupBorder, theme().scale(), style::entered, paperRadius * theme().scale());
    try {
        SketchPainter(canvas.dc(), theme().font(), theme().scale())
            .paint(sketch_.drawing(), toolkit::labelTextsOf(sketch_), area.width, area.height);
    } catch (...) {
        host().reportLater(std::current_exception());
    }
}

}  // namespace velmora::win32
