#pragma once
// A field of one line.

#include "velmora/adapters/qt/control_view.h"
#include "velmora/adapters/qt/field_edit.h"

namespace velmora::qt {

class TextBoxView : public ControlView {
  public:
    TextBoxView(ViewHost& host, screen::TextBox& box, const screen::Layout& layout, QWidget* parent);

    QWidget& widget() override { return *edit_; }
    void update(screen::Property property) override;
    void updateAll() override;
    bool key(const KeyStroke& stroke) override;
    bool pressed() override;
    bool otherEvent(QEvent& event) override;
    void focusGained() override;
    void focusLeft() override;
    void finish() override;

  protected:
    void updateColors() override;

  private:
    void bringText();
    void edited();
    /// Composed text, character by character through the filter; false when there is none.
    bool committedText(const QString& text);

    screen::TextBox& box_;
    screen::Role role_;
    FieldEdit* edit_;
    bool fromModel_ = false;
    bool changed_ = false;  ///< by the user since the focus came
    bool commitPending_ = false;
};

}  // namespace velmora::qt
