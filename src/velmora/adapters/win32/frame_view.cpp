#include "velmora/adapters/win32/frame_view.h"

#include "velmora/adapters/win32/text.h"

namespace velmora::win32 {

namespace {
constexpr double groupRadius = 3;
constexpr int belowTitle = 3;
}  // namespace

toolkit::Needs FrameView::needs() const {
    const int width = theme().textWidth(theme().titleFont(), toWide(frame_.caption())) + theme().scaled(style::unit);
    return {.width = {width, width}};
}

toolkit::GroupEdges FrameView::edgesOf(const screen::Frame& frame, const Theme& theme) {
    const int edge = theme.scaled(style::unit + 1);
    const int title = frame.caption().empty() ? 0 : theme.lineHeight(theme.titleFont()) + theme.scaled(belowTitle);
    return {.left = edge, .top = title + edge, .right = edge, .bottom = edge};
}

void FrameView::draw(Canvas& canvas) {
    const int title =
        frame_.caption().empty() ? 0 : theme().lineHeight(theme().titleFont()) + theme().scaled(belowTitle);
    Box frame = box();
    frame.top += title;
    frame.height -= title;
    canvas.frame(frame, style::groupBorder, theme().scale(), style::groupGround, groupRadius * theme().scale());
    canvas.text({.left = box().left + 1, .top = box().top, .width = box().width, .height = title},
                toWide(frame_.caption()), theme().titleFont(), looksEnabled() ? style::text : style::disabledText,
                DT_SINGLELINE | DT_TOP);
}

void FrameView::update(screen::Property property) {
    if (property == screen::Property::caption) {
        host().arrangeLater();
        repaint();
    } else {
        ControlView::update(property);
    }
}

}  // namespace velmora::win32
