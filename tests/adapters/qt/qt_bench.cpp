#include "qt_bench.h"

#include <QApplication>
#include <QTimer>

namespace velmora::testing {

void QtBench::play(screen::Form& form, const std::function<void()>& user) {
    EXPECT_TRUE(show(form, user));
    EXPECT_TRUE(answers_.empty()) << "a box that was expected did not open";
}

void QtBench::whenBoxOpens(const std::function<void(QWidget&)>& answer) {
    answers_.push_back(answer);
    if (answers_.size() == 1) {
        QTimer::singleShot(0, qApp, [this] { lookForBox(); });
    }
}

void QtBench::lookForBox() {
    QWidget* box = QApplication::activeModalWidget();
    if (box == nullptr || dynamic_cast<qt::FormWindow*>(box) != nullptr || !box->isVisible()) {
        QTimer::singleShot(5, qApp, [this] { lookForBox(); });
        return;
    }
    const auto answer = answers_.front();
    answers_.erase(answers_.begin());
    if (!answers_.empty()) {
        QTimer::singleShot(0, qApp, [this] { lookForBox(); });
    }
    answer(*box);
}

}  // namespace velmora::testing
