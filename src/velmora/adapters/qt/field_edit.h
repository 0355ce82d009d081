#pragma once
// A line edit with a width in digits.

#include <QLineEdit>

namespace velmora::qt {

class FieldEdit : public QLineEdit {
  public:
    /// `digits` 0: all available width.
    FieldEdit(int digits, QWidget* parent) : QLineEdit(parent), digits_(digits) {
        setSizePolicy(digits > 0 ? QSizePolicy::Fixed : QSizePolicy::Expanding, QSizePolicy::Fixed);
        setFocusPolicy(Qt::TabFocus);
    }

    QSize sizeHint() const override { return {widthOf(digits_ > 0 ? digits_ : 24), heightHint()}; }
    QSize minimumSizeHint() const override { return {widthOf(digits_ > 0 ? digits_ : 8), heightHint()}; }

  private:
    int widthOf(int digits) const { return fontMetrics().horizontalAdvance(QLatin1Char('0')) * digits + 12; }
    int heightHint() const { return fontMetrics().height() + 7; }

    int digits_;
};

}  // namespace velmora::qt
