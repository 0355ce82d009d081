#pragma once
// A message or a question.

#include <QMessageBox>
#include <vector>

#include "velmora/platform/screen/screen.h"

namespace velmora::qt {

/// Answers to Enter (the default button), to Esc (Cancel, else No, else OK) and to a button's letter, with Alt or
/// without.
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
