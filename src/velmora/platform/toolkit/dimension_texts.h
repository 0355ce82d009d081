#pragma once
// Where the texts of dimensions stand: on the canvas, clear of each other and, where it can be, of the piece.

#include <functional>
#include <string>
#include <vector>

#include "velmora/platform/screen/drawing.h"
#include "velmora/platform/toolkit/pixel_geometry.h"

namespace velmora::toolkit {

/// The width to which a text advances and the height of a line, in the toolkit's font.
using MeasureText = std::function<PixelSize(const std::string&)>;

/// Length of an arrow head.
inline constexpr double arrowLength = 8;

/// A dimension line on the canvas.
struct DimensionLine {
    PixelPoint from;  ///< on the piece
    PixelPoint to;
    PixelPoint start;  ///< of the dimension line itself
    PixelPoint end;
    std::string text;
    screen::TextPlace place = screen::TextPlace::middle;

    /// Whether both arrow heads have room between the extension lines.
    bool hasRoom() const { return distance(start, end) > 3 * arrowLength; }
};

/// A text on the canvas. It is turned about its middle.
struct PlacedText {
    std::string text;
    PixelPoint middle;
    double angle = 0;  ///< degrees, clockwise; letters are read from below or from the right
    PixelSize size;    ///< before it is turned
    PixelRect bounds;  ///< after
};

/// The text at a place, level.
PlacedText levelText(const std::string& text, PixelPoint middle, const MeasureText& measure);

/// Places for a line's text, the most natural one first: above and below its middle, sliding along it, then beyond its
/// ends; a line that would rather have its text outside begins with that end. Never empty.
std::vector<PlacedText> placesFor(const DimensionLine& line, const MeasureText& measure);

/// Chooses places one text after the other; each that is chosen is taken from then on. Texts keep off the canvas's
/// edge before they keep off other texts, and off those before they keep off the edges of the piece.
class TextPlacing {
  public:
    TextPlacing(const PixelRect& canvas, const MeasureText& measure) : canvas_(canvas), measure_(measure) {}

    /// An edge of the piece that texts had better not cross.
    void addEdge(const PixelLine& edge) { edges_.push_back(edge); }
    /// A place that a text already has.
    void take(const PixelRect& bounds) { taken_.push_back(bounds); }
    PlacedText place(const DimensionLine& line);

  private:
    double cost(const PixelRect& bounds) const;

    PixelRect canvas_;
    const MeasureText& measure_;
    std::vector<PixelLine> edges_;
    std::vector<PixelRect> taken_;
};

}  // namespace velmora::toolkit
