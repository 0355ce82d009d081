#pragma once
// Placing of dimension texts on the canvas: without overlaps and, where possible, off the piece.

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "velmora/platform/screen/drawing.h"
#include "velmora/platform/toolkit/pixel_geometry.h"

namespace velmora::toolkit {

/// Width and line height of a text in the toolkit's font.
using MeasureText = std::function<PixelSize(const std::string&)>;

/// Length of an arrow head in pixels.
inline constexpr double arrowLength = 8;

/// A dimension line on the canvas.
struct DimensionLine {
    PixelPoint from;  ///< on the piece
    PixelPoint to;
    PixelPoint start;  ///< ends of the dimension line itself
    PixelPoint end;
    std::string text;
    screen::TextPlace place = screen::TextPlace::middle;

    /// True when both arrow heads fit between the extension lines.
    bool hasRoom() const { return distance(start, end) > 3 * arrowLength; }
};

/// A text on the canvas, rotated about its middle.
struct PlacedText {
    std::string text;
    PixelPoint middle;
    double angle = 0;  ///< degrees, clockwise; the text is read from below or from the right
    PixelSize size;    ///< before the rotation
    PixelRect bounds;  ///< after the rotation
};

/// The text at a place, not rotated.
PlacedText levelText(const std::string& text, PixelPoint middle, const MeasureText& measure);

/// Candidate places for a line's text, best first: above and below its middle, then along it, then beyond its ends;
/// when the line prefers its text outside, the preferred end comes first. Never empty.
std::vector<PlacedText> placesFor(const DimensionLine& line, const MeasureText& measure);

/// A text at its place. One that stands apart from its line has a leader from the line's middle.
struct ChosenPlace {
    PlacedText text;
    std::optional<PixelLine> leader;
};

/// Chooses a place for one text after the other; a chosen place is then occupied. A text never overlaps another one and
/// never leaves the canvas; within that it avoids the edges of the piece.
class TextPlacing {
  public:
    TextPlacing(const PixelRect& canvas, const MeasureText& measure) : canvas_(canvas), measure_(measure) {}

    /// Adds an edge of the piece that texts should not cross.
    void addEdge(const PixelLine& edge) { edges_.push_back(edge); }
    /// Marks a place as occupied by a text.
    void take(const PixelRect& bounds) { taken_.push_back(bounds); }
    /// Beside the line where there is room, otherwise the nearest free place of the canvas; nullopt when there is none.
    std::optional<ChosenPlace> place(const DimensionLine& line);

  private:
    bool isFree(const PixelRect& bounds) const;
    double crossings(const PixelRect& bounds) const;
    std::optional<PlacedText> besideLine(const DimensionLine& line) const;
    std::optional<ChosenPlace> apart(const DimensionLine& line) const;

    PixelRect canvas_;
    const MeasureText& measure_;
    std::vector<PixelLine> edges_;
    std::vector<PixelRect> taken_;
};

}  // namespace velmora::toolkit
