#pragma once
// Common part of one-line and multi-line fields: text written both by the model and by the user.

#include <optional>
#include <string>

#include "velmora/adapters/qt/control_view.h"
#include "velmora/platform/toolkit/field_typing.h"

namespace velmora::qt {

class FieldView : public ControlView, protected toolkit::TextEditor {
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
    /// Must be called when the widget's text has changed, by the user or by the model.
    void edited();
    /// Passes a text that was not typed through the model's filter into the widget.
    void insertFiltered(const std::string& before, const std::string& text, const std::string& after);
    /// Passes a character through the model's filter into the widget.
    void type(const KeyStroke& stroke);
    /// Handles a double click on the widget.
    void clickedTwice(const QEvent& event);

    // Access to the concrete widget.
    virtual void setReadOnly(bool locked) = 0;
    /// The widget's text in the form in which the model holds it.
    virtual std::string typedText() const = 0;
    /// Copies the model's text to the widget if it differs.
    virtual void showText() = 0;
    virtual void selectAll() = 0;
    /// Writes a text in place of the selection or at the caret.
    virtual void replaceSelection(const std::string& text) = 0;
    virtual void deselect() = 0;

  private:
    void bringText();
    std::optional<std::string> textTaken();

    screen::TextBox& box_;
    screen::Role role_;
    bool fromModel_ = false;
    bool filtered_ = false;  ///< what the widget receives now has passed the filter
};

}  // namespace velmora::qt
