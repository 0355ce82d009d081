#include "velmora/adapters/documents/sheet_painter.h"

#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include "velmora/adapters/documents/sheet_pages.h"
#include "velmora/adapters/painting/text.h"

namespace velmora::documents {

namespace {

constexpr int paperDots = 1200;

}  // namespace

bool paintSheet(const paper::Sheet& sheet, QIODevice& out) {
    const SheetPages pages(sheet);
    QPdfWriter file(&out);
    file.setPageSize(QPageSize(QPageSize::A4));
    file.setPageMargins(QMarginsF(0, 0, 0, 0));
    file.setResolution(paperDots);
    file.setTitle(painting::toQt(sheet.title));
    file.setCreator(QStringLiteral("VELMORA"));
    QPainter painter;
    if (!painter.begin(&file)) {
        return false;
    }
    const double scale = file.width() / SheetPages::pageSize().width();
    painter.scale(scale, scale);
    for (std::size_t page = 0; page < pages.count(); ++page) {
        if (page > 0 && !file.newPage()) {
            return false;
        }
        pages.paint(painter, page);
    }
    return painter.end();
}

}  // namespace velmora::documents
