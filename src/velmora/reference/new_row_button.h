#pragma once
// The button that starts and cancels a new row. Its caption is the state.

#include "velmora/platform/screen/control.h"
#include "velmora/platform/screen/control_array.h"

namespace velmora::reference {

class NewRowButton {
  public:
    /// `head` frames the values that a new row shares with the displayed row; Text1 holds the fields of both frames.
    NewRowButton(screen::Button& button, screen::Frame& head, screen::ControlArray<screen::TextBox>& Text1)
        : button_(button), head_(head), Text1_(Text1) {
        button_.setCaption(idle);
    }

    bool isAdding() const { return button_.caption() != idle; }
    void click();
    void begin();
    void end();
    /// Disables the six fields of the head: 1 to 5 and 11. Kept K-176: the same six in both forms. In the gears' form
    /// these are the teeth, the values computed from them and H: after a cancel they stay disabled until the form is
    /// opened again. Gears are written without this button.
    void disableHead();

  private:
    static constexpr const char* idle = "Nuevo Registro";

    screen::Button& button_;
    screen::Frame& head_;
    screen::ControlArray<screen::TextBox>& Text1_;
};

}  // namespace velmora::reference
