#pragma once
// How far a long work has come, with a button to end it. It comes up only when the work takes its time.

#include <QElapsedTimer>
#include <QString>
#include <memory>

#include "velmora/platform/screen/screen.h"

class QProgressDialog;
class QWidget;

namespace velmora::qt {

class ProgressWindow final : public screen::Progress {
  public:
    /// Stays away for `delay` milliseconds from now.
    ProgressWindow(QString title, QWidget* parent, int delay = 1000);
    ~ProgressWindow() override;

    /// Lets the events of the toolkit run, those of the user only once the window has come up: it is modal, and what
    /// they do elsewhere waits.
    void show(std::string_view text, std::optional<double> fraction) override;
    bool cancelled() override;

    /// nullptr until it has come up.
    QProgressDialog* window() const { return dialog_.get(); }

  private:
    void comeUp();

    QString title_;
    QWidget* parent_;
    int delay_;
    QElapsedTimer sinceStart_;
    QElapsedTimer sinceEvents_;
    std::unique_ptr<QProgressDialog> dialog_;
};

}  // namespace velmora::qt
