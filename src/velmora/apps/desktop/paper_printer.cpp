#include "velmora/apps/desktop/paper_printer.h"

#include <QPainter>
#include <QPrinter>
#include <algorithm>

#include "velmora/adapters/documents/sheet_pages.h"
#include "velmora/adapters/painting/text.h"

namespace velmora::desktop {

bool printSheet(const paper::Sheet& sheet, QPrinter& printer) {
    const documents::SheetPages pages(sheet);
    const auto count = static_cast<int>(pages.count());
    const int first = printer.fromPage() > 0 ? printer.fromPage() : 1;
    const int last = printer.toPage() > 0 ? std::min(printer.toPage(), count) : count;
    if (first > last) {
        return false;
    }
    printer.setDocName(painting::toQt(sheet.title));
    printer.setPageSize(QPageSize(QPageSize::A4));
    printer.setFullPage(true);
    QPainter painter;
    if (!painter.begin(&printer)) {
        return false;
    }
    const QRectF paper = printer.paperRect(QPrinter::DevicePixel);
    const double scale = paper.width() / documents::SheetPages::pageSize().width();
    painter.scale(scale, scale);
    for (int page = first; page <= last; ++page) {
        if (page > first && !printer.newPage()) {
            return false;
        }
        pages.paint(painter, static_cast<std::size_t>(page - 1));
    }
    return painter.end();
}

}  // namespace velmora::desktop
