#include "velmora/adapters/win32/canvas.h"

#include "velmora/adapters/win32/gdi_plus.h"

namespace velmora::win32 {

namespace {

Gdiplus::Color opaque(style::Rgb color) {
    return Gdiplus::Color(0xFF000000U | color);
}

RECT rectOf(const Box& box) {
    return {box.left, box.top, box.left + box.width, box.top + box.height};
}

}  // namespace

Canvas::Canvas(HDC target, const Box& area)
    : target_(target),
      area_(area),
      dc_(CreateCompatibleDC(target)),
      bitmap_(CreateCompatibleBitmap(target, std::max(area.width, 1), std::max(area.height, 1))),
      before_(SelectObject(dc_, bitmap_)) {
    SetViewportOrgEx(dc_, -area.left, -area.top, nullptr);
    SetBkMode(dc_, TRANSPARENT);
}

Canvas::~Canvas() {
    BitBlt(target_, area_.left, area_.top, area_.width, area_.height, dc_, area_.left, area_.top, SRCCOPY);
    SelectObject(dc_, before_);
    DeleteObject(bitmap_);
    DeleteDC(dc_);
}

void Canvas::fill(const Box& box, style::Rgb color) {
    const RECT rect = rectOf(box);
    SetBkColor(dc_, colorOf(color));
    ExtTextOutW(dc_, 0, 0, ETO_OPAQUE, &rect, nullptr, 0, nullptr);
    SetBkMode(dc_, TRANSPARENT);
}

// Two filled shapes, one in the other: their edges lie between pixels, where a stroke's would depend on rounding.
void Canvas::frame(const Box& box, style::Rgb color, double width, std::optional<style::Rgb> ground, double radius) {
    const int stroke = std::max(static_cast<int>(width + 0.5), 1);
    if (!ground) {
        fill({.left = box.left, .top = box.top, .width = box.width, .height = stroke}, color);
        fill({.left = box.left, .top = box.bottom() - stroke, .width = box.width, .height = stroke}, color);
        fill({.left = box.left, .top = box.top, .width = stroke, .height = box.height}, color);
        fill({.left = box.right() - stroke, .top = box.top, .width = stroke, .height = box.height}, color);
        return;
    }
    Gdiplus::Graphics graphics(dc_);
    graphics.SetSmoothingMode(Gdiplus::SmoothingModeAntiAlias);
    graphics.SetPixelOffsetMode(Gdiplus::PixelOffsetModeHalf);
    const auto fillRounded = [&](int inset, style::Rgb ink) {
        const auto left = static_cast<float>(box.left + inset);
        const auto top = static_cast<float>(box.top + inset);
        const auto right = static_cast<float>(box.right() - inset);
        const auto bottom = static_cast<float>(box.bottom() - inset);
        const auto corner = static_cast<float>(2 * std::max(radius - inset, 0.5));
        Gdiplus::GraphicsPath path;
        path.AddArc(left, top, corner, corner, 180, 90);
        path.AddArc(right - corner, top, corner, corner, 270, 90);
        path.AddArc(right - corner, bottom - corner, corner, corner, 0, 90);
        path.AddArc(left, bottom - corner, corner, corner, 90, 90);
        path.CloseFigure();
        const Gdiplus::SolidBrush brush(opaque(ink));
        graphics.FillPath(&brush, &path);
    };
    fillRounded(0, color);
    fillRounded(stroke, *ground);
}

void Canvas::chevron(const Box& box, style::Rgb color, double scale) {
    Gdiplus::Graphics graphics(dc_);
    graphics.SetSmoothingMode(Gdiplus::SmoothingModeAntiAlias);
    graphics.SetPixelOffsetMode(Gdiplus::PixelOffsetModeHalf);
    const auto x = static_cast<float>(box.left + box.width / 2.0);
    const auto y = static_cast<float>(box.top + box.height / 2.0);
    const auto half = static_cast<float>(3.5 * scale);
    const auto depth = static_cast<float>(1.75 * scale);
    const Gdiplus::PointF points[] = {{x - half, y - depth}, {x, y + depth}, {x + half, y - depth}};
    Gdiplus::Pen pen(opaque(color), static_cast<float>(1.5 * scale));
    pen.SetLineJoin(Gdiplus::LineJoinMiter);
    graphics.DrawLines(&pen, points, 3);
}

void Canvas::text(const Box& box, std::wstring_view text, HFONT font, style::Rgb color, UINT format) {
    RECT room = rectOf(box);
    const HGDIOBJ before = SelectObject(dc_, font);
    SetTextColor(dc_, colorOf(color));
    DrawTextW(dc_, text.data(), static_cast<int>(text.size()), &room, format);
    SelectObject(dc_, before);
}

SmoothLines::SmoothLines() {
    const Gdiplus::GdiplusStartupInput input;
    Gdiplus::GdiplusStartup(&token_, &input, nullptr);
}

SmoothLines::~SmoothLines() {
    Gdiplus::GdiplusShutdown(token_);
}

}  // namespace velmora::win32
