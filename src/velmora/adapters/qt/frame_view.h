#pragma once
// A group box with a title.

#include <QGroupBox>

#include "velmora/adapters/qt/control_view.h"

namespace velmora::qt {

class FrameView : public ControlView {
  public:
    FrameView(ViewHost& host, screen::Frame& frame, QWidget* parent);

    QWidget& widget() override { return *box_; }
    std::vector<QWidget*> inputs() override { return {}; }
    void update(screen::Property property) override;
    void updateAll() override;
    bool key(const KeyStroke&) override { return false; }
    void setAccessibleName(const QString&) override {}

  private:
    screen::Frame& frame_;
    QGroupBox* box_;
};

}  // namespace velmora::qt
