#pragma once
// Progress of a long operation, with a Cancel button. It appears only when the operation takes long.

#include <QElapsedTimer>
#include <QString>
#include <memory>

#include "velmora/platform/screen/screen.h"

class QProgressDialog;
class QWidget;

namespace velmora::qt {

class ProgressWindow final : public screen::Progress {
  public:
    /// Appears after `delay` milliseconds at the earliest.
    ProgressWindow(QString title, QWidget* parent, int delay = 1000);
    ~ProgressWindow() override;

    /// Runs the events of the toolkit; user events only once the window has appeared: it is modal, so actions on other
    /// windows wait.
    void show(std::string_view text, std::optional<double> fraction) override;
    bool cancelled() override;

    /// nullptr until it has appeared.
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
