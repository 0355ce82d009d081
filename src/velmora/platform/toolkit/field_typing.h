#pragma once
// Text on its way into a field: a typed character passes KeyPress and then the editor of the field; a text that was not
// typed passes the same filter as a whole.

#include <optional>
#include <string>
#include <string_view>

#include "velmora/platform/screen/control.h"
#include "velmora/platform/toolkit/key_stroke.h"

namespace velmora::toolkit {

/// The editing operations of a field's widget. The widget knows the caret and writes the resulting text into the model.
class TextEditor {
  public:
    virtual ~TextEditor() = default;
    /// Replaces the selection, or inserts at the caret.
    virtual void insert(char32_t character) = 0;
    /// Deletes the selection, or the character before the caret.
    virtual void erase() = 0;
    /// Inserts a line break; for fields of several lines.
    virtual void breakLine() = 0;
};

/// Types one character: the field's KeyPress may replace or discard it; then the field is edited unless it is locked.
/// Enter (13) inserts a line break in a field of several lines and has no effect in others; Esc (27) and other control
/// characters have no effect anywhere. Returns what KeyPress made of the character, 0 when it was discarded. The
/// character 0 does nothing.
char32_t typeInto(screen::TextBox& box, char32_t character, TextEditor& editor);

/// What a field with a filter of keys holds: numbers are arranged to the right, days are not.
enum class Holds { number, dayOrCode };

/// What a field holds by its place in its form's layout.
Holds heldBy(const screen::TextBox& box);

/// Whether the field's KeyPress lets no letters through.
bool takesNumbersOnly(const screen::TextBox& box);

/// Whether `now` is `before` without one piece, or unchanged.
bool isRemoval(std::string_view before, std::string_view now);

/// A text that reaches a field otherwise than by typing: pasted, dropped, composed.
struct Insertion {
    std::string_view before;  ///< of the field's text: what stays before it
    std::string_view text;
    std::string_view after;  ///< what stays behind it
};

/// The text to put between `before` and `after`; none when the field refuses it, which the form's status line then
/// tells. Unchanged unless the field takes numbers only. There a number is freed of its unit and of the
/// separators of its groups, and its decimal sign becomes the comma (`pasted_number.h`); the result must be a number
/// that could have been typed.
std::optional<std::string> filterInsertion(screen::TextBox& box, const Insertion& insertion);

}  // namespace velmora::toolkit
