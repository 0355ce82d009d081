#include "velmora/apps/icon/icon_svg.h"

#include <QColor>
#include <QString>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

#include "velmora/apps/icon/icon_shapes.h"

namespace velmora::icon {
namespace {

TEST(IconSvg, IsADocumentWithAPathForEachShape) {
    QXmlStreamReader reader(QString::fromStdString(iconSvg()));
    std::size_t paths = 0;
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement && reader.name() == QStringLiteral("path")) {
            EXPECT_TRUE(reader.attributes().value(QStringLiteral("d")).startsWith(QStringLiteral("M")));
            EXPECT_TRUE(QColor::isValidColor(reader.attributes().value(QStringLiteral("stroke")).toString()));
            ++paths;
        }
    }
    EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
    EXPECT_EQ(paths, iconShapes().size());
}

TEST(IconSvg, WritesNumbersWithAPoint) {
    EXPECT_NE(iconSvg().find("viewBox=\"0 0 128.00 128.00\""), std::string::npos);
}

}  // namespace
}  // namespace velmora::icon
