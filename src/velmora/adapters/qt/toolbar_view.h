#pragma once
// A bar of buttons, some with a menu.

#include <QToolButton>
#include <vector>

#include "velmora/adapters/qt/control_view.h"

class QHBoxLayout;

namespace velmora::qt {

class ToolbarView : public ControlView {
  public:
    ToolbarView(ViewHost& host, screen::Toolbar& bar, QWidget* parent);

    QWidget& widget() override { return *strip_; }
    void update(screen::Property property) override;
    void updateAll() override;
    bool key(const KeyStroke& stroke) override;
    bool actsOnClick() const override { return true; }
    void setAccessibleName(const QString& name) override { strip_->setAccessibleName(name); }

  private:
    void build();
    void addButton(int number, const QString& caption);

    screen::Toolbar& bar_;
    QWidget* strip_;
    QHBoxLayout* row_;
};

}  // namespace velmora::qt
