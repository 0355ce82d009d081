#pragma once
// A message or a question.

#include <QMessageBox>
#include <functional>
#include <string_view>
#include <vector>

#include "velmora/platform/screen/screen.h"
#include "velmora/platform/toolkit/error_box.h"

namespace velmora::qt {

/// Handles Enter (the default button), Esc (Cancel, else No, else OK) and the letters of the buttons, with or without
/// Alt.
class MessageDialog : public QMessageBox {
  public:
    MessageDialog(const screen::MessageBox& box, QWidget* parent);
    /// An error: its words, its number in small letters, and buttons that copy its details and open its folder.
    MessageDialog(const toolkit::ErrorReport& report, QWidget* parent);

    screen::Answer ask();

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    /// A button that leaves the box open.
    void addStep(std::string_view caption, const std::function<void()>& step);

    struct Choice {
        QAbstractButton* button;
        screen::Answer answer;
        char32_t letter;
    };
    std::vector<Choice> choices_;
};

}  // namespace velmora::qt
