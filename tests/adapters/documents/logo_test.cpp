#include "velmora/adapters/documents/logo.h"

#include <QBuffer>
#include <QPainter>

#include <gtest/gtest.h>

#include "velmora/adapters/painting/graphics.h"

#include "adapters/documents/sample_company.h"

namespace velmora::documents {
namespace {

class LogoTest : public ::testing::Test {
  protected:
    LogoTest() { graphics.require(); }

    static std::string bytesOf(const char* format) {
        QImage image(40, 20, QImage::Format_RGB32);
        image.fill(Qt::red);
        QByteArray bytes;
        QBuffer buffer(&bytes);
        EXPECT_TRUE(image.save(&buffer, format));
        return bytes.toStdString();
    }
    static QColor paintedMiddle(const Logo& logo) {
        QImage canvas(80, 40, QImage::Format_RGB32);
        canvas.fill(Qt::white);
        QPainter painter(&canvas);
        logo.draw(painter, QRectF(0, 0, 80, 40));
        painter.end();
        return canvas.pixelColor(60, 20);
    }

    painting::Graphics graphics;
};

TEST_F(LogoTest, PicturesOfBothKindsArePainted) {
    for (const char* format : {"PNG", "JPEG"}) {
        const Logo logo(bytesOf(format));
        EXPECT_EQ(logo.size(), QSizeF(40, 20)) << format;
        EXPECT_GT(paintedMiddle(logo).red(), 240) << format;
        EXPECT_LT(paintedMiddle(logo).green(), 20) << format;
    }
}

TEST_F(LogoTest, ADrawingIsPainted) {
    const Logo logo(support::svgLogo);
    EXPECT_EQ(logo.size(), QSizeF(200, 100));
    EXPECT_EQ(paintedMiddle(logo), QColor(0xd0, 0x8a, 0x1d));
}

TEST_F(LogoTest, WhatIsNoPictureIsEmptyAndPaintsNothing) {
    for (const std::string& bytes : {std::string(), std::string("no picture"), std::string("<svg broken")}) {
        const Logo logo(bytes);
        EXPECT_TRUE(logo.size().isEmpty()) << bytes;
        EXPECT_EQ(paintedMiddle(logo), QColor(Qt::white)) << bytes;
    }
}

}  // namespace
}  // namespace velmora::documents
