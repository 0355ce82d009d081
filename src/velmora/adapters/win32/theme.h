#pragma once
// Fonts, sizes and brushes of one window at the scale of its monitor.

#include <map>
#include <memory>
#include <string_view>
#include <type_traits>

#include "velmora/adapters/win32/windows_api.h"
#include "velmora/platform/screen/control.h"
#include "velmora/platform/toolkit/window_style.h"

namespace velmora::win32 {

namespace style = toolkit::window_style;

struct DeleteObjectOf {
    void operator()(HGDIOBJ object) const { DeleteObject(object); }
};
using FontHandle = std::unique_ptr<std::remove_pointer_t<HFONT>, DeleteObjectOf>;
using BrushHandle = std::unique_ptr<std::remove_pointer_t<HBRUSH>, DeleteObjectOf>;

constexpr COLORREF colorOf(style::Rgb rgb) {
    return ((rgb & 0xFF) << 16) | (rgb & 0xFF00) | (rgb >> 16);
}

/// A colour of the model as 0xRRGGBB.
constexpr style::Rgb rgbOf(screen::Color color) {
    const auto c = static_cast<style::Rgb>(color);
    return ((c & 0xFF) << 16) | (c & 0xFF00) | ((c >> 16) & 0xFF);
}

class Theme {
  public:
    explicit Theme(int dpi);

    int dpi() const { return dpi_; }
    /// Pixels at 100 % as pixels of this monitor.
    int scaled(int pixels) const { return MulDiv(pixels, dpi_, USER_DEFAULT_SCREEN_DPI); }
    double scale() const { return static_cast<double>(dpi_) / USER_DEFAULT_SCREEN_DPI; }

    HFONT font() const { return font_.get(); }
    HFONT titleFont() const { return titleFont_.get(); }  ///< of groups and of the caption of a total
    HFONT totalFont() const { return totalFont_.get(); }  ///< of a total

    int textWidth(HFONT font, std::wstring_view text) const;
    int lineHeight(HFONT font) const;
    /// Of a text that may have several lines.
    SIZE textSize(HFONT font, std::wstring_view text) const;
    /// Height of a one-line field, frame included.
    int fieldHeight(HFONT font) const { return lineHeight(font) + scaled(7); }

    /// A brush that lives as long as the theme.
    HBRUSH brush(style::Rgb color) const;

  private:
    int dpi_;
    FontHandle font_;
    FontHandle titleFont_;
    FontHandle totalFont_;
    mutable std::map<style::Rgb, BrushHandle> brushes_;
};

/// Sets a font on a control.
void useFont(HWND window, HFONT font);

}  // namespace velmora::win32
