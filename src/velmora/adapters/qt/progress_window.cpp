#include "velmora/adapters/qt/progress_window.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QProgressDialog>
#include <algorithm>
#include <cmath>
#include <utility>

#include "velmora/adapters/qt/text.h"

namespace velmora::qt {

namespace {
constexpr int steps = 1000;
constexpr int betweenEvents = 40;  ///< milliseconds
constexpr int leastWidth = 360;
}  // namespace

ProgressWindow::ProgressWindow(QString title, QWidget* parent, int delay)
    : title_(std::move(title)), parent_(parent), delay_(delay) {
    sinceStart_.start();
    sinceEvents_.start();
}

ProgressWindow::~ProgressWindow() = default;

void ProgressWindow::comeUp() {
    dialog_ = std::make_unique<QProgressDialog>(QString(), QStringLiteral("&Cancelar"), 0, 0, parent_);
    dialog_->setWindowTitle(title_);
    dialog_->setWindowModality(Qt::ApplicationModal);
    dialog_->setAutoClose(false);
    dialog_->setAutoReset(false);
    dialog_->setMinimumDuration(0);
    dialog_->setMinimumWidth(leastWidth);
    dialog_->show();
}

void ProgressWindow::show(std::string_view text, std::optional<double> fraction) {
    if (dialog_ == nullptr && sinceStart_.elapsed() >= delay_) {
        comeUp();
    }
    if (sinceEvents_.elapsed() < betweenEvents && delay_ > 0) {
        return;
    }
    if (dialog_ != nullptr && !dialog_->wasCanceled()) {
        dialog_->setLabelText(toQt(text));
        dialog_->setMaximum(fraction ? steps : 0);
        dialog_->setValue(fraction ? static_cast<int>(std::lround(std::clamp(*fraction, 0.0, 1.0) * steps)) : 0);
    }
    QCoreApplication::processEvents(dialog_ != nullptr ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents);
    sinceEvents_.restart();
}

bool ProgressWindow::cancelled() {
    return dialog_ != nullptr && dialog_->wasCanceled();
}

}  // namespace velmora::qt
