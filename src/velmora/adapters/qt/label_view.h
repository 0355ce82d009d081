#pragma once
// A text on the form; as the caption of a field it is placed beside the field.

#include <QLabel>

#include "velmora/adapters/qt/control_view.h"

namespace velmora::qt {

class LabelView : public ControlView {
  public:
    /// `digits`: width reserved for the text, whatever its contents; 0 reserves none.
    LabelView(ViewHost& host, screen::Label& label, QWidget* parent, screen::Role role = screen::Role::label,
              int digits = 0);

    QWidget& widget() override { return *text_; }
    void update(screen::Property property) override;
    void updateAll() override;
    bool key(const KeyStroke&) override { return false; }
    /// The field that this label is the caption of.
    void setField(ControlView& field) { field_ = &field; }
    void setAccessibleName(const QString&) override {}

  protected:
    void updateColors() override;

  private:
    screen::Label& label_;
    QLabel* text_;
    QPointer<ControlView> field_;
};

}  // namespace velmora::qt
