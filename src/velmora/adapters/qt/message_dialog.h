#pragma once
// A message or a question.

#include <QMessageBox>
#include <vector>

#include "velmora/platform/screen/screen.h"

namespace velmora::qt {

/// Handles Enter (the default button), Esc (Cancel, else No, else OK) and the letters of the buttons, with or without
/// Alt.
class MessageDialog : public QMessageBox {
  public:
    MessageDialog(const screen::MessageBox& box, QWidget* parent);

    screen::Answer ask();

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    struct Choice {
        QAbstractButton* button;
        screen::Answer answer;
        char32_t letter;
    };
    std::vector<Choice> choices_;
};

}  // namespace velmora::qt
