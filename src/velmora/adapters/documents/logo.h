#pragma once
// A company's logo from the bytes of a file.

#include <QImage>
#include <QSizeF>
#include <memory>
#include <string>

class QPainter;
class QRectF;
class QSvgRenderer;

namespace velmora::documents {

/// A PNG or JPEG picture, or an SVG drawing, which is painted as lines. Needs the toolkit's application.
class Logo {
  public:
    /// Bytes that are no picture make an empty logo.
    explicit Logo(const std::string& bytes);
    ~Logo();
    Logo(const Logo&) = delete;
    Logo& operator=(const Logo&) = delete;

    /// In its own units; empty for an empty logo.
    QSizeF size() const;
    /// Fills the place; nothing for an empty logo.
    void draw(QPainter& painter, const QRectF& place) const;

  private:
    QImage picture_;
    std::unique_ptr<QSvgRenderer> drawing_;
};

}  // namespace velmora::documents
