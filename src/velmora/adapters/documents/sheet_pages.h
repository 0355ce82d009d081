#pragma once
// A sheet distributed over A4 pages: for a file, for a printer, for a preview.

#include <QSizeF>
#include <cstddef>
#include <memory>

#include "velmora/paper/sheet.h"

class QPainter;

namespace velmora::documents {

/// Lengths are screen pixels, 96 an inch: sketches look as on the screen. Needs the toolkit's application
/// (painting::Graphics).
class SheetPages {
  public:
    explicit SheetPages(const paper::Sheet& sheet);
    ~SheetPages();
    SheetPages(SheetPages&&) noexcept;
    SheetPages& operator=(SheetPages&&) noexcept;

    std::size_t count() const;
    /// Of each page.
    static QSizeF pageSize();
    /// Paints a page, counted from 0, from the painter's origin.
    void paint(QPainter& painter, std::size_t page) const;

  private:
    struct LaidOut;
    std::unique_ptr<const LaidOut> laidOut_;
};

}  // namespace velmora::documents
