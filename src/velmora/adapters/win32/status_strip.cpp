#include "velmora/adapters/win32/status_strip.h"

#include <algorithm>

#include "velmora/adapters/win32/text.h"

namespace velmora::win32 {

namespace {

constexpr int edge = 3;
/// Of the room beside the state, the message has three fifths and the last action two.
constexpr int messageShare = 3;
constexpr int wholeShare = 5;
constexpr UINT oneLine = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS;

std::wstring lineOf(const toolkit::StatusText& text) {
    std::string line;
    for (const std::string& part : {text.state, text.message, text.deed}) {
        line += line.empty() || part.empty() ? part : " · " + part;
    }
    return toWide(line);
}

}  // namespace

StatusStrip::StatusStrip(HWND parent, const Theme& theme) : theme_(&theme) {
    create({}, WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, 0, parent, {});
}

void StatusStrip::useTheme(const Theme& theme) {
    theme_ = &theme;
}

int StatusStrip::height() const {
    return theme_->lineHeight(theme_->titleFont()) + theme_->scaled(2 * edge);
}

void StatusStrip::show(const toolkit::StatusText& text) {
    const bool same = text.state == text_.state && text.message == text_.message && text.deed == text_.deed &&
                      text.urgent == text_.urgent;
    if (!same) {
        text_ = text;
        SetWindowTextW(handle(), lineOf(text_).c_str());
        InvalidateRect(handle(), nullptr, FALSE);
    }
}

LRESULT StatusStrip::receive(UINT message, WPARAM word, LPARAM value) {
    switch (message) {
        case WM_PAINT:
            paint();
            return 0;
        case WM_ERASEBKGND:
            return 1;
        default:
            return NativeWindow::receive(message, word, value);
    }
}

void StatusStrip::paint() {
    PAINTSTRUCT job;
    HDC target = BeginPaint(handle(), &job);
    {
        const Box area = clientBox(handle());
        const int gap = theme_->scaled(style::group);
        Canvas canvas(target, area);
        canvas.fill(area, style::window);
        canvas.fill({.width = area.width, .height = 1}, style::groupBorder);
        Box part{.left = gap, .height = area.height};
        if (!text_.state.empty()) {
            const std::wstring state = toWide(text_.state);
            part.width = theme_->textWidth(theme_->titleFont(), state);
            canvas.text(part, state, theme_->titleFont(), style::caption, oneLine);
            part.left += part.width + gap;
        }
        const int room = std::max(area.width - part.left - 2 * gap, 0);
        part.width = room * messageShare / wholeShare;
        canvas.text(part, toWide(text_.message), theme_->font(), text_.urgent ? style::warning : style::caption,
                    oneLine);
        part.left += part.width + gap;
        part.width = room - part.width;
        canvas.text(part, toWide(text_.deed), theme_->font(), style::faintText, oneLine | DT_RIGHT);
    }
    EndPaint(handle(), &job);
}

}  // namespace velmora::win32
