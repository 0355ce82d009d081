#include "velmora/adapters/win32/theme.h"

#include <algorithm>
#include <cwchar>
#include <string>

namespace velmora::win32 {

namespace {

constexpr int points = 9;
constexpr double totalFactor = 1.7;

/// A device context to measure texts with.
class MeasuringContext {
  public:
    explicit MeasuringContext(HFONT font) : dc_(CreateCompatibleDC(nullptr)), before_(SelectObject(dc_, font)) {}
    ~MeasuringContext() {
        SelectObject(dc_, before_);
        DeleteDC(dc_);
    }
    MeasuringContext(const MeasuringContext&) = delete;
    MeasuringContext& operator=(const MeasuringContext&) = delete;
    HDC dc() const { return dc_; }

  private:
    HDC dc_;
    HGDIOBJ before_;
};

FontHandle makeFont(LOGFONTW shape, int height, LONG weight) {
    shape.lfHeight = -height;
    shape.lfWidth = 0;
    shape.lfWeight = weight;
    shape.lfQuality = CLEARTYPE_QUALITY;
    return FontHandle(CreateFontIndirectW(&shape));
}

std::wstring faceOf(HFONT font) {
    const MeasuringContext context(font);
    wchar_t face[LF_FACESIZE] = {};
    GetTextFaceW(context.dc(), LF_FACESIZE, face);
    return face;
}

LOGFONTW named(LOGFONTW shape, const wchar_t* face) {
    std::wcsncpy(shape.lfFaceName, face, LF_FACESIZE - 1);
    return shape;
}

/// The system's font for messages. Where it is not installed, the usual replacement is very wide; its condensed variant
/// suits a dense form.
LOGFONTW systemFont() {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    const LOGFONTW& usual = metrics.lfMessageFont;
    const std::wstring narrow = L"DejaVu Sans Condensed";
    if (faceOf(makeFont(usual, 12, FW_NORMAL).get()) == L"DejaVu Sans" &&
        faceOf(makeFont(named(usual, narrow.c_str()), 12, FW_NORMAL).get()) == narrow) {
        return named(usual, narrow.c_str());
    }
    return usual;
}

}  // namespace

Theme::Theme(int dpi) : dpi_(dpi) {
    const LOGFONTW shape = systemFont();
    const int height = MulDiv(points, dpi, 72);
    font_ = makeFont(shape, height, FW_NORMAL);
    titleFont_ = makeFont(shape, height, FW_SEMIBOLD);
    totalFont_ = makeFont(shape, static_cast<int>(height * totalFactor + 0.5), FW_BOLD);
}

int Theme::textWidth(HFONT font, std::wstring_view text) const {
    const MeasuringContext context(font);
    SIZE size{};
    GetTextExtentPoint32W(context.dc(), text.data(), static_cast<int>(text.size()), &size);
    return size.cx;
}

SIZE Theme::textSize(HFONT font, std::wstring_view text) const {
    const MeasuringContext context(font);
    RECT room{};
    DrawTextW(context.dc(), text.data(), static_cast<int>(text.size()), &room, DT_CALCRECT | DT_NOPREFIX);
    return {room.right, std::max<LONG>(room.bottom, lineHeight(font))};
}

int Theme::lineHeight(HFONT font) const {
    const MeasuringContext context(font);
    TEXTMETRICW metrics{};
    GetTextMetricsW(context.dc(), &metrics);
    return metrics.tmHeight;
}

HBRUSH Theme::brush(style::Rgb color) const {
    BrushHandle& brush = brushes_[color];
    if (!brush) {
        brush.reset(CreateSolidBrush(colorOf(color)));
    }
    return brush.get();
}

void useFont(HWND window, HFONT font) {
    SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

}  // namespace velmora::win32
