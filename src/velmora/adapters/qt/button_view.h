#pragma once
// A button with its mnemonic.

#include <QPushButton>

#include "velmora/adapters/qt/control_view.h"

namespace velmora::qt {

class ButtonView : public ControlView {
  public:
    ButtonView(ViewHost& host, screen::Button& button, QWidget* parent, screen::Role role);

    QWidget& widget() override { return *push_; }
    void update(screen::Property property) override;
    void updateAll() override;
    bool key(const KeyStroke& stroke) override;
    bool actsOnClick() const override { return true; }
    void setAccessibleName(const QString&) override {}  // the caption is the accessible name

  private:
    void clicked();

    screen::Button& button_;
    QPushButton* push_;
};

}  // namespace velmora::qt
