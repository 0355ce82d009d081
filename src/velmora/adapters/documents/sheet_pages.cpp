#include "velmora/adapters/documents/sheet_pages.h"

#include <QPainter>
#include <algorithm>
#include <utility>
#include <vector>

#include "velmora/adapters/documents/paper_text.h"
#include "velmora/adapters/documents/sheet_composer.h"
#include "velmora/adapters/painting/text.h"

namespace velmora::documents {

namespace {

using namespace sheet_measures;
using painting::toQt;
using paper::Sheet;

struct Placed {
    const Strip* strip;
    double y;
};
using Page = std::vector<Placed>;

/// Distributes strips over pages. The pages refer to the strips.
class Pagination {
  public:
    Pagination(const std::vector<Strip>& strips, double furtherTop) : furtherTop_(furtherTop) {
        for (std::size_t i = 0; i < strips.size(); ++i) {
            if (y_ + keptHeight(strips, i) > bottom && !pages_.back().empty()) {
                pages_.emplace_back();
                y_ = furtherTop_;
                if (strips[i].head) {
                    place(*strips[i].head);
                }
            }
            if (strips[i].heightToBottom > 0) {
                y_ = std::max(y_, bottom - strips[i].heightToBottom);
            }
            place(strips[i]);
        }
    }
    const std::vector<Page>& pages() const { return pages_; }

  private:
    /// The height of the strip and of those that must follow it on the same page.
    static double keptHeight(const std::vector<Strip>& strips, std::size_t from) {
        double height = strips[from].height;
        for (std::size_t i = from; strips[i].keepWithNext && i + 1 < strips.size(); ++i) {
            height += strips[i + 1].height;
        }
        return height;
    }
    void place(const Strip& strip) {
        pages_.back().push_back({&strip, y_});
        y_ += strip.height;
    }

    double furtherTop_;
    std::vector<Page> pages_{1};
    double y_ = top;
};

void drawFoot(QPainter& painter, const SheetFonts& fonts, const Sheet& sheet, std::size_t page, std::size_t pages) {
    painter.setPen(QPen(QColor(rule), 0.8));
    painter.drawLine(QPointF(sideMargin, footLine), QPointF(sideMargin + width, footLine));
    const QRectF place(sideMargin, footLine + 3, width, lineHeight(fonts.small));
    drawLines(painter, place, {toQt(sheet.name)}, fonts.small, faint);
    drawLines(painter, place, {QStringLiteral("Página %1 de %2").arg(page).arg(pages)}, fonts.small, faint,
              Qt::AlignRight);
}

void drawFurtherHead(QPainter& painter, const SheetFonts& fonts, const Sheet& sheet) {
    const QRectF place(sideMargin, top, width, lineHeight(fonts.heading));
    drawLines(painter, place, {toQt(sheet.name + " (continuación)")}, fonts.heading, accent);
    painter.setPen(QPen(QColor(accent), 1));
    painter.drawLine(QPointF(sideMargin, place.bottom() + 3), QPointF(sideMargin + width, place.bottom() + 3));
}

/// A sheet's strips on their pages; owns what the pages refer to. The fonts must outlive it.
struct Arrangement {
    Arrangement(const Sheet& sheet, const SheetFonts& fonts, double roominess)
        : composer(std::make_unique<SheetComposer>(fonts, roominess)),
          strips(composer->compose(sheet)),
          pages(Pagination(strips, top + lineHeight(fonts.heading) + blockGap).pages()) {}

    std::unique_ptr<SheetComposer> composer;
    std::vector<Strip> strips;
    std::vector<Page> pages;
};

/// With smaller sketches where that saves a page.
Arrangement bestArrangement(const Sheet& sheet, const SheetFonts& fonts) {
    Arrangement best(sheet, fonts, 1);
    for (const double roominess : {0.75, 0.5, 0.25, 0.0}) {
        if (best.pages.size() == 1) {
            break;
        }
        Arrangement smaller(sheet, fonts, roominess);
        if (smaller.pages.size() < best.pages.size()) {
            best = std::move(smaller);
        }
    }
    return best;
}

}  // namespace

struct SheetPages::LaidOut {
    explicit LaidOut(const Sheet& wanted) : sheet(wanted), arrangement(bestArrangement(sheet, fonts)) {}

    Sheet sheet;
    SheetFonts fonts;
    Arrangement arrangement;
};

SheetPages::SheetPages(const Sheet& sheet) : laidOut_(std::make_unique<LaidOut>(sheet)) {}
SheetPages::~SheetPages() = default;
SheetPages::SheetPages(SheetPages&&) noexcept = default;
SheetPages& SheetPages::operator=(SheetPages&&) noexcept = default;

std::size_t SheetPages::count() const {
    return laidOut_->arrangement.pages.size();
}

QSizeF SheetPages::pageSize() {
    return {pageWidth, pageHeight};
}

void SheetPages::paint(QPainter& painter, std::size_t page) const {
    painter.setRenderHint(QPainter::Antialiasing);
    if (page > 0) {
        drawFurtherHead(painter, laidOut_->fonts, laidOut_->sheet);
    }
    for (const Placed& placed : laidOut_->arrangement.pages.at(page)) {
        placed.strip->draw(painter, QRectF(sideMargin, placed.y, width, placed.strip->height));
    }
    drawFoot(painter, laidOut_->fonts, laidOut_->sheet, page + 1, count());
}

}  // namespace velmora::documents
