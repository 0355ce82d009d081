#include "velmora/adapters/win32/part.h"

namespace velmora::win32 {

bool Part::place(const toolkit::Area& area, bool shown) {
    const bool visible = shown && state_.shown;
    if (area != box_ || visible != shown_) {
        repaint();
        box_ = area;
        shown_ = visible;
        placed();
        repaint();
    }
    return shown_;
}

void Part::setState(const toolkit::WidgetState& state) {
    if (state.shown != state_.shown || state.keepsRoom != state_.keepsRoom) {
        state_ = state;
        host_.arrangeLater();
    }
}

toolkit::Needs TextPart::needs() const {
    const int width = theme().textWidth(font(), text_);
    const int height = theme().lineHeight(font());
    return {.width = {width, width}, .height = {height, height}};
}

void TextPart::draw(Canvas& canvas) {
    canvas.text(box(), text_, font(), style::caption, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
}

}  // namespace velmora::win32
