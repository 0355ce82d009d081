#include "velmora/platform/toolkit/pixel_geometry.h"

namespace velmora::toolkit {

namespace {

/// The part of a line that remains after clipping, from 0 at its start to 1 at its end.
struct Clipped {
    double from = 0;
    double to = 1;

    /// Clips to the inside of one pair of parallel edges.
    void cut(double start, double extent, double low, double high) {
        if (extent == 0) {
            if (start < low || start > high) {
                to = -1;
            }
            return;
        }
        const double a = (low - start) / extent;
        const double b = (high - start) / extent;
        from = std::max(from, std::min(a, b));
        to = std::min(to, std::max(a, b));
    }
};

}  // namespace

bool meets(const PixelLine& line, const PixelRect& rect) {
    const PixelPoint extent = line.to - line.from;
    Clipped inside;
    inside.cut(line.from.x, extent.x, rect.left, rect.right());
    inside.cut(line.from.y, extent.y, rect.top, rect.bottom());
    return inside.from <= inside.to;
}

}  // namespace velmora::toolkit
