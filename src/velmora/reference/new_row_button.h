#pragma once
// The button that begins a new row and cancels it. Its caption is the state.

#include "velmora/platform/screen/control.h"
#include "velmora/platform/screen/control_array.h"

namespace velmora::reference {

class NewRowButton {
  public:
    /// `head` frames the values that a new row shares with the row on show; Text1 holds the fields of both frames.
    NewRowButton(screen::Button& button, screen::Frame& head, screen::ControlArray<screen::TextBox>& Text1)
        : button_(button), head_(head), Text1_(Text1) {
        button_.setCaption(idle);
    }

    bool isAdding() const { return button_.caption() != idle; }
    void click();
    void begin();
    void end();
    /// The six fields of the head: 1 to 5 and 11.
    /// Kept K-176: the same six in both forms. In the gears' form they are the teeth, what follows from them and H:
    /// after a cancel they stay closed until the form is opened again. Gears are written without this button.
    void disableHead();

  private:
    static constexpr const char* idle = "Nuevo Registro";

    screen::Button& button_;
    screen::Frame& head_;
    screen::ControlArray<screen::TextBox>& Text1_;
};

}  // namespace velmora::reference
