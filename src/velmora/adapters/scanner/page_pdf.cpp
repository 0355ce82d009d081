#include "velmora/adapters/scanner/page_pdf.h"

#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

namespace velmora::scanner {

bool writePage(const Image& page, QIODevice& out) {
    constexpr double millimetresOfInch = 25.4;
    constexpr int paperDots = 1200;
    const QSizeF size(page.width * millimetresOfInch / page.dotsPerInchAcross,
                      page.height * millimetresOfInch / page.dotsPerInchDown);
    // The writer turns a page size that is wider than high back to portrait unless told otherwise.
    QPdfWriter paper(&out);
    paper.setPageSize(QPageSize(size, QPageSize::Millimeter, QString(), QPageSize::ExactMatch));
    paper.setPageMargins(QMarginsF(0, 0, 0, 0));
    paper.setResolution(paperDots);
    paper.setCreator(QStringLiteral("VELMORA"));
    QPainter painter;
    if (!painter.begin(&paper)) {
        return false;
    }
    const QImage image(page.samples.data(), page.width, page.height, static_cast<qsizetype>(page.width) * page.channels,
                       page.channels == 1 ? QImage::Format_Grayscale8 : QImage::Format_RGB888);
    painter.drawImage(QRectF(0, 0, paper.width(), paper.height()), image);
    return painter.end();
}

}  // namespace velmora::scanner
