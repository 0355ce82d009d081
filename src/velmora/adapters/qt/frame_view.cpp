#include "velmora/adapters/qt/frame_view.h"

#include <QEvent>
#include <QGroupBox>

#include "velmora/adapters/qt/text.h"

namespace velmora::qt {

/// A group box with room for a widget beside its title. The widget may reach over the upper edge of the frame, but not
/// into the contents.
class TitledBox : public QGroupBox {
  public:
    using QGroupBox::QGroupBox;

    void setTitlePart(QWidget& part) {
        part_ = &part;
        part_->setParent(this);
        placePart();
    }

  protected:
    bool event(QEvent* event) override {
        if (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest) {
            placePart();
        }
        return QGroupBox::event(event);
    }

  private:
    void placePart() {
        if (part_ != nullptr) {
            const QSize size = part_->sizeHint().boundedTo(this->size());
            part_->setGeometry(width() - size.width(), 0, size.width(), size.height());
        }
    }

    QWidget* part_ = nullptr;
};

FrameView::FrameView(ViewHost& host, screen::Frame& frame, QWidget* parent)
    : ControlView(host, frame), frame_(frame), box_(new TitledBox(parent)) {}

QWidget& FrameView::widget() {
    return *box_;
}

void FrameView::setTitlePart(QWidget& part) {
    box_->setTitlePart(part);
}

void FrameView::update(screen::Property property) {
    if (property == screen::Property::caption) {
        box_->setTitle(toQt(frame_.caption()));
    } else {
        ControlView::update(property);
    }
}

void FrameView::updateAll() {
    ControlView::updateAll();
    box_->setAccessibleName(toQt(frame_.accessibleName()));
    update(screen::Property::caption);
}

}  // namespace velmora::qt
