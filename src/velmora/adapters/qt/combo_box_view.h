#pragma once
// A list, plain or editable.

#include <QComboBox>

#include "velmora/adapters/qt/control_view.h"

namespace velmora::qt {

class ListBox;

class ComboBoxView : public ControlView {
  public:
    ComboBoxView(ViewHost& host, screen::ComboBox& box, const screen::Layout& layout, QWidget* parent);

    QWidget& widget() override;
    QWidget& focusTarget() override;
    std::vector<QWidget*> inputs() override;
    void update(screen::Property property) override;
    void updateAll() override;
    bool key(const KeyStroke& stroke) override;
    bool otherEvent(QEvent& event) override;
    void focusGained() override { updateColors(); }
    void focusLeft() override { updateColors(); }

  protected:
    void updateColors() override;

  private:
    void bringItems();
    void bringChoice();
    void chosen(int index);
    void edited(const QString& text);

    screen::ComboBox& box_;
    ListBox* list_;
    bool fromModel_ = false;
    bool itemsPending_ = false;
};

}  // namespace velmora::qt
