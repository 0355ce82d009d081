#include "velmora/adapters/qt/button_view.h"

#include "velmora/adapters/qt/text.h"
#include "velmora/adapters/qt/theme.h"
#include "velmora/platform/toolkit/control_keys.h"

namespace velmora::qt {

namespace {
constexpr QSize largeButton{320, 52};
}

ButtonView::ButtonView(ViewHost& host, screen::Button& button, QWidget* parent, screen::Role role)
    : ControlView(host, button), button_(button), push_(new QPushButton(parent)) {
    push_->setFocusPolicy(Qt::TabFocus);
    push_->setAutoDefault(false);
    push_->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    if (role == screen::Role::total) {
        push_->setFont(theme::titleFont());
        push_->setMinimumSize(largeButton);
    }
    connect(push_, &QPushButton::clicked, this, [this] { clicked(); });
}

void ButtonView::update(screen::Property property) {
    if (property == screen::Property::caption) {
        push_->setText(toQt(button_.caption()));
    } else {
        ControlView::update(property);
    }
}

void ButtonView::updateAll() {
    ControlView::updateAll();
    update(screen::Property::caption);
}

bool ButtonView::key(const KeyStroke& stroke) {
    if (!toolkit::pressesButton(stroke)) {
        return true;
    }
    // Space is left to the widget: the button is shown pressed and clicks on release.
    if (stroke.key != screen::Key::enter) {
        return false;
    }
    button_.onClick();
    return true;
}

void ButtonView::clicked() {
    host().feed([this] {
        if (host().bringFocus(button_)) {
            button_.onClick();
        }
    });
}

}  // namespace velmora::qt
