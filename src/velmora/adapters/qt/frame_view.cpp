#include "velmora/adapters/qt/frame_view.h"

#include "velmora/adapters/qt/text.h"

namespace velmora::qt {

FrameView::FrameView(ViewHost& host, screen::Frame& frame, QWidget* parent)
    : ControlView(host, frame), frame_(frame), box_(new QGroupBox(parent)) {}

void FrameView::update(screen::Property property) {
    if (property == screen::Property::caption) {
        box_->setTitle(toQt(frame_.caption()));
    } else {
        ControlView::update(property);
    }
}

void FrameView::updateAll() {
    ControlView::updateAll();
    update(screen::Property::caption);
}

}  // namespace velmora::qt
