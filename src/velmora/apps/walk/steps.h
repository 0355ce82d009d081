#pragma once
// The steps of a walk, as they stand in its file.
//
//   # a comment
//   keys 1001⏎7781⏎{F7}10     presses keys: "⏎" is Enter, "↓" Down, "↑" Up, "↹" Tab, "{F7}" a function key, "{^N}"
//                              Control and a letter, "{!C}" Alt and a letter, "{+F1}" Shift and a function key,
//                              "{Esc}" Esc, "␣" a space
//   picture NAME               writes the whole screen to NAME.png
//   window NAME                writes the topmost window to NAME.png
//   paper NAME                 copies the first paper opened since the last such step to NAME.pdf

#include <QString>
#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

namespace velmora::walk {

struct Key {
    int code = 0;  ///< Qt::Key; Qt::Key_unknown for a character
    QString text = {};
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
};
struct ScreenPicture {
    std::string name;
};
struct WindowPicture {
    std::string name;
};
struct Paper {
    std::string name;
};
using Step = std::variant<Key, ScreenPicture, WindowPicture, Paper>;

/// A line that is no step; what() names it.
class NoStep : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// One step for each key. Errors: NoStep.
std::vector<Step> stepsOf(const std::string& text);

}  // namespace velmora::walk
