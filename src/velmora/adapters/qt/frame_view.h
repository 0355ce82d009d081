#pragma once
// A group box with a title.

#include "velmora/adapters/qt/control_view.h"

namespace velmora::qt {

class TitledBox;

class FrameView : public ControlView {
  public:
    FrameView(ViewHost& host, screen::Frame& frame, QWidget* parent);

    QWidget& widget() override;
    /// Stands at the right end of the title's line, in its natural size.
    void setTitlePart(QWidget& part);
    std::vector<QWidget*> inputs() override { return {}; }
    void update(screen::Property property) override;
    void updateAll() override;
    bool key(const KeyStroke&) override { return false; }
    void setAccessibleName(const QString&) override {}

  private:
    screen::Frame& frame_;
    TitledBox* box_;
};

}  // namespace velmora::qt
