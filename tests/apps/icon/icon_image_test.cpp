#include "velmora/apps/icon/icon_image.h"

#include <gtest/gtest.h>

#include "velmora/apps/icon/icon_shapes.h"

namespace velmora::icon {
namespace {

bool hasRed(const QImage& image) {
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            if (qAlpha(pixel) > 100 && qRed(pixel) > qBlue(pixel) + 40) {
                return true;
            }
        }
    }
    return false;
}

TEST(IconImage, IsAPictureOnATransparentGroundInEverySize) {
    for (const int size : imageSizes) {
        const QImage image = iconImage(size);
        EXPECT_EQ(image.size(), QSize(size, size));
        EXPECT_EQ(qAlpha(image.pixel(0, 0)), 0) << size;
        EXPECT_EQ(qAlpha(image.pixel(size / 2, size / 3)), 255) << size;
    }
}

TEST(IconImage, SmallOnesHaveNoAxes) {
    for (const int size : imageSizes) {
        EXPECT_EQ(hasRed(iconImage(size)), size >= smallestWithAxes) << size;
    }
}

}  // namespace
}  // namespace velmora::icon
