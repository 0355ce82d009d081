#include "velmora/adapters/qt/check_box_view.h"

#include "velmora/adapters/qt/text.h"
#include "velmora/platform/toolkit/control_keys.h"

namespace velmora::qt {

CheckBoxView::CheckBoxView(ViewHost& host, screen::CheckBox& box, QWidget* parent)
    : ControlView(host, box), box_(box), check_(new QCheckBox(parent)) {
    check_->setFocusPolicy(Qt::TabFocus);
    connect(check_, &QCheckBox::clicked, this, [this] { clicked(); });
}

void CheckBoxView::update(screen::Property property) {
    switch (property) {
        case screen::Property::value:
            check_->setChecked(box_.checked());
            break;
        case screen::Property::caption:
            check_->setText(toQt(box_.caption()));
            break;
        default:
            ControlView::update(property);
    }
}

void CheckBoxView::updateAll() {
    ControlView::updateAll();
    update(screen::Property::value);
    update(screen::Property::caption);
}

bool CheckBoxView::key(const KeyStroke& stroke) {
    return !toolkit::ticksBox(stroke);
}

void CheckBoxView::clicked() {
    const bool wanted = check_->isChecked();
    host().feed([&] {
        if (host().bringFocus(box_)) {
            box_.setChecked(wanted);
        }
    });
    check_->setChecked(box_.checked());
}

}  // namespace velmora::qt
