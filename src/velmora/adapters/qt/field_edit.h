#pragma once
// A line edit with a width in digits that hands out every text inserted otherwise than by typing.

#include <QLineEdit>
#include <functional>

class QMenu;

namespace velmora::qt {

class FieldEdit : public QLineEdit {
  public:
    static constexpr int noNumber = -1;

    /// `digits` 0: all available width.
    FieldEdit(int digits, QWidget* parent);

    /// Receives a text that the user pastes or drops, in place of the insertion.
    void onInsertion(std::function<void(const QString&)> listener) { insertion_ = std::move(listener); }
    /// Undo, cut, copy, paste and the like. The caller shows and deletes it.
    QMenu* makeMenu();

    /// A number is painted with at least so many decimals while the field has no focus; "###" when it has no room.
    void paintNumber(int decimals);
    /// What is painted without the focus.
    QString paintedText() const;

    QSize sizeHint() const override { return {widthOf(digits_ > 0 ? digits_ : 24), heightHint()}; }
    QSize minimumSizeHint() const override { return {widthOf(digits_ > 0 ? digits_ : 8), heightHint()}; }

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void insertion(const QString& text);
    void pasteClipboard();
    int widthOf(int digits) const { return fontMetrics().horizontalAdvance(QLatin1Char('0')) * digits + 12; }
    int heightHint() const { return fontMetrics().height() + 7; }

    QRect textRoom() const;

    int digits_;
    int decimals_ = noNumber;
    std::function<void(const QString&)> insertion_;
};

}  // namespace velmora::qt
