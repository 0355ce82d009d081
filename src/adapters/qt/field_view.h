#pragma once
// What a field of one line and one of several have in common: text that the model and the user both write.

#include <string>

#include "velmora/adapters/qt/control_view.h"

namespace velmora::qt {

class FieldView : public ControlView {
  public:
    FieldView(ViewHost& host, screen::TextBox& box, screen::Role role)
        : ControlView(host, box), box_(box), role_(role) {}

    void update(screen::Property property) override;
    void updateAll() override;
    bool pressed() override;
    void focusGained() override;
    void focusLeft() override;

  protected:
    void updateColors() override;

    screen::TextBox& box() const { return box_; }
    /// To be called when the widget's text has changed, whoever changed it.
    void edited();
    /// A character through the model's filter into the widget.
    void type(const KeyStroke& stroke);
    /// A double click that has arrived at the widget.
    void clickedTwice(const QEvent& event);

    // The widget, whichever it is.
    virtual void setReadOnly(bool locked) = 0;
    /// The text as the model would hold it.
    virtual std::string typedText() const = 0;
    /// Brings the model's text over where it differs.
    virtual void showText() = 0;
    virtual void selectAll() = 0;
    virtual void deselect() = 0;
    virtual void erase() = 0;
    virtual void insert(const QString& text) = 0;

  private:
    void bringText();

    screen::TextBox& box_;
    screen::Role role_;
    bool fromModel_ = false;
};

}  // namespace velmora::qt
