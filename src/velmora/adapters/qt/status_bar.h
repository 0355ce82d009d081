#pragma once
// The status line below a form: state of the record, message of the moment, last action.

#include <QLabel>
#include <QWidget>

#include "velmora/platform/toolkit/status_text.h"

namespace velmora::qt {

/// A text of one line that ends with "…" where it has no room; the tool tip is the whole text then.
class StatusPart : public QLabel {
  public:
    explicit StatusPart(QWidget* parent);
    void show(const QString& text);
    const QString& wholeText() const { return whole_; }
    QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void fit();
    QString whole_;
};

class StatusBar : public QWidget {
  public:
    explicit StatusBar(QWidget* parent);
    void show(const toolkit::StatusText& text);
    /// Leaves the state as it was shown last.
    void showMessage(const toolkit::StatusText& text);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QLabel* state_;
    StatusPart* message_;
    StatusPart* deed_;
};

}  // namespace velmora::qt
