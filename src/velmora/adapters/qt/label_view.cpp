#include "velmora/adapters/qt/label_view.h"

#include <algorithm>

#include "velmora/adapters/qt/text.h"
#include "velmora/adapters/qt/theme.h"

namespace velmora::qt {

LabelView::LabelView(ViewHost& host, screen::Label& label, QWidget* parent, screen::Role role, int digits)
    : ControlView(host, label), label_(label), text_(new QLabel(parent)) {
    text_->setTextFormat(Qt::PlainText);
    text_->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    if (role == screen::Role::total) {
        text_->setFont(theme::totalFont());
    }
    text_->setMinimumWidth(text_->fontMetrics().horizontalAdvance(QLatin1Char('0')) * digits);
}

void LabelView::update(screen::Property property) {
    if (property != screen::Property::caption) {
        ControlView::update(property);
        return;
    }
    text_->setText(toQt(label_.caption()));
    // Never narrower again: a caption that changes with the piece must not move the fields.
    text_->setMinimumWidth(std::max(text_->minimumWidth(), text_->sizeHint().width()));
    if (field_ && field_->control().accessibleName().empty()) {
        field_->setAccessibleName(text_->text());
    }
}

void LabelView::updateAll() {
    ControlView::updateAll();
    update(screen::Property::caption);
    updateColors();
}

void LabelView::updateColors() {
    QPalette palette = text_->palette();
    const bool plain = label_.foreColor() == screen::colors::black;
    palette.setColor(QPalette::WindowText, plain ? QColor(theme::caption) : theme::fromModel(label_.foreColor()));
    const bool painted = label_.backColor() != screen::colors::white;
    if (painted) {
        palette.setColor(QPalette::Window, theme::fromModel(label_.backColor()));
    }
    text_->setPalette(palette);
    text_->setAutoFillBackground(painted);
}

}  // namespace velmora::qt
