#pragma once
// Painting in a window without flicker.

#include <optional>
#include <string_view>

#include "velmora/adapters/win32/native_window.h"
#include "velmora/adapters/win32/theme.h"

namespace velmora::win32 {

/// What is painted into the canvas appears in `target` when it goes.
class Canvas {
  public:
    /// `area` in the coordinates of `target`.
    Canvas(HDC target, const Box& area);
    ~Canvas();
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    HDC dc() const { return dc_; }

    void fill(const Box& box, style::Rgb color);
    /// A frame, its stroke inside the box; with a ground and rounded corners, or without both.
    void frame(const Box& box, style::Rgb color, double width, std::optional<style::Rgb> ground, double radius);
    /// The mark of a list that opens downward.
    void chevron(const Box& box, style::Rgb color, double scale);
    /// `format` as of DrawText.
    void text(const Box& box, std::wstring_view text, HFONT font, style::Rgb color, UINT format);

  private:
    HDC target_;
    Box area_;
    HDC dc_;
    HBITMAP bitmap_;
    HGDIOBJ before_;
};

/// Starts the library for smooth lines; once, before the first canvas. Not while a DLL is being loaded or unloaded.
class SmoothLines {
  public:
    SmoothLines();
    ~SmoothLines();
    SmoothLines(const SmoothLines&) = delete;
    SmoothLines& operator=(const SmoothLines&) = delete;

  private:
    ULONG_PTR token_ = 0;
};

}  // namespace velmora::win32
