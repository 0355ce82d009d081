#pragma once
// A check box.

#include <QCheckBox>

#include "velmora/adapters/qt/control_view.h"

namespace velmora::qt {

class CheckBoxView : public ControlView {
  public:
    CheckBoxView(ViewHost& host, screen::CheckBox& box, QWidget* parent);

    QWidget& widget() override { return *check_; }
    void update(screen::Property property) override;
    void updateAll() override;
    bool key(const KeyStroke& stroke) override;
    bool actsOnClick() const override { return true; }
    void setAccessibleName(const QString&) override {}  // the caption is the accessible name

  private:
    void clicked();

    screen::CheckBox& box_;
    QCheckBox* check_;
};

}  // namespace velmora::qt
