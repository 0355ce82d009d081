#pragma once
// Typing a character into a text field: KeyPress first, then the editor of the field.

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

}  // namespace velmora::toolkit
