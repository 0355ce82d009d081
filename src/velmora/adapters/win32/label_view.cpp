#include "velmora/adapters/win32/label_view.h"

#include <algorithm>
#include <utility>

#include "velmora/adapters/win32/text.h"

namespace velmora::win32 {

LabelView::LabelView(ViewHost& host, screen::Label& label, screen::Role role, int digits)
    : ControlView(host, label), label_(label), role_(role), digits_(digits) {
    widen();
}

HFONT LabelView::font() const {
    if (role_ == screen::Role::total) {
        return theme().totalFont();
    }
    return title_ ? theme().titleFont() : theme().font();
}

void LabelView::useTheme() {
    width_ = 0;
    widen();
}

// Never narrower again: a caption that changes with the piece must not move the fields.
void LabelView::widen() {
    const SIZE text = theme().textSize(font(), toWide(label_.caption()));
    const int before = width_;
    const int linesBefore = std::exchange(height_, static_cast<int>(text.cy));
    width_ = std::max({width_, static_cast<int>(text.cx), theme().textWidth(font(), L"0") * digits_});
    if (width_ != before || height_ != linesBefore) {
        host().arrangeLater();
    }
}

toolkit::Needs LabelView::needs() const {
    return {.width = {width_, width_}, .height = {height_, height_}};
}

void LabelView::draw(Canvas& canvas) {
    if (label_.backColor() != screen::colors::white) {
        canvas.fill(box(), rgbOf(label_.backColor()));
    }
    const bool plain = label_.foreColor() == screen::colors::black;
    const style::Rgb letters = !looksEnabled() ? style::faintText : plain ? style::caption : rgbOf(label_.foreColor());
    canvas.text(box(), toWide(label_.caption()), font(), letters, DT_LEFT | DT_NOPREFIX);
}

void LabelView::update(screen::Property property) {
    if (property != screen::Property::caption) {
        ControlView::update(property);
        return;
    }
    widen();
    repaint();
    if (field_ != nullptr && field_->control().accessibleName().empty()) {
        field_->setAccessibleName(toWide(label_.caption()));
    }
}

void LabelView::updateAll() {
    ControlView::updateAll();
    update(screen::Property::caption);
}

}  // namespace velmora::win32
