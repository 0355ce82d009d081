#include "velmora/adapters/documents/logo.h"

#include <QPainter>
#include <QSvgRenderer>

namespace velmora::documents {

namespace {

QByteArray bytesOf(const std::string& bytes) {
    return {bytes.data(), static_cast<qsizetype>(bytes.size())};
}

/// The reader of drawings writes to the program's error output when it is given a picture.
bool looksLikeDrawing(const std::string& bytes) {
    return bytes.find("<svg") != std::string::npos;
}

}  // namespace

Logo::Logo(const std::string& bytes) {
    if (!bytes.empty() && !picture_.loadFromData(bytesOf(bytes), "PNG") &&
        !picture_.loadFromData(bytesOf(bytes), "JPEG") && looksLikeDrawing(bytes)) {
        drawing_ = std::make_unique<QSvgRenderer>(bytesOf(bytes));
    }
}

Logo::~Logo() = default;

QSizeF Logo::size() const {
    if (drawing_ != nullptr) {
        return drawing_->isValid() ? drawing_->viewBoxF().size() : QSizeF();
    }
    return picture_.size();
}

void Logo::draw(QPainter& painter, const QRectF& place) const {
    if (drawing_ != nullptr && drawing_->isValid()) {
        drawing_->render(&painter, place);
    } else if (!picture_.isNull()) {
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(place, picture_);
    }
}

}  // namespace velmora::documents
