#include "velmora/adapters/qt/status_bar.h"

#include <QHBoxLayout>
#include <QPainter>

#include "velmora/adapters/qt/text.h"
#include "velmora/adapters/qt/theme.h"

namespace velmora::qt {

namespace {

void setColor(QWidget& label, QRgb color) {
    QPalette palette = label.palette();
    palette.setColor(QPalette::WindowText, QColor(color));
    label.setPalette(palette);
}

}  // namespace

StatusPart::StatusPart(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void StatusPart::show(const QString& text) {
    whole_ = text;
    setAccessibleName(text);
    fit();
}

void StatusPart::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    fit();
}

void StatusPart::fit() {
    const QString fitted = fontMetrics().elidedText(whole_, Qt::ElideRight, width());
    setText(fitted);
    setToolTip(fitted == whole_ ? QString() : whole_);
}

StatusBar::StatusBar(QWidget* parent)
    : QWidget(parent), state_(new QLabel(this)), message_(new StatusPart(this)), deed_(new StatusPart(this)) {
    setObjectName(QStringLiteral("status"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(theme::group, 3, theme::group, 3);
    row->setSpacing(theme::group);
    row->addWidget(state_);
    row->addWidget(message_, 3);
    row->addWidget(deed_, 2);
    state_->setObjectName(QStringLiteral("state"));
    state_->setFont(theme::titleFont());
    state_->setTextFormat(Qt::PlainText);
    message_->setObjectName(QStringLiteral("message"));
    deed_->setObjectName(QStringLiteral("deed"));
    deed_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setColor(*deed_, theme::faintText);
}

void StatusBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(QColor(theme::groupBorder));
    painter.drawLine(rect().topLeft(), rect().topRight());
}

void StatusBar::show(const toolkit::StatusText& text) {
    state_->setText(toQt(text.state));
    state_->setVisible(!text.state.empty());
    showMessage(text);
}

void StatusBar::showMessage(const toolkit::StatusText& text) {
    message_->show(toQt(text.message));
    setColor(*message_, text.urgent ? theme::warning : theme::caption);
    deed_->show(toQt(text.deed));
}

}  // namespace velmora::qt
