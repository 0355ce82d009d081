#pragma once
// A text of several lines.

#include <QPlainTextEdit>

#include "velmora/adapters/qt/control_view.h"

namespace velmora::qt {

class MemoView : public ControlView {
  public:
    MemoView(ViewHost& host, screen::TextBox& box, const screen::Layout& layout, QWidget* parent);

    QWidget& widget() override { return *edit_; }
    std::vector<QWidget*> inputs() override { return {edit_, edit_->viewport()}; }
    void update(screen::Property property) override;
    void updateAll() override;
    bool key(const KeyStroke& stroke) override;
    bool pressed() override { return box_.allSelected(); }
    bool otherEvent(QEvent& event) override;
    void focusGained() override;
    void focusLeft() override;
    void finish() override;

  protected:
    void updateColors() override;

  private:
    void bringText();
    void edited();

    screen::TextBox& box_;
    screen::Role role_;
    QPlainTextEdit* edit_;
    bool fromModel_ = false;
    bool changed_ = false;
    bool commitPending_ = false;
};

}  // namespace velmora::qt
