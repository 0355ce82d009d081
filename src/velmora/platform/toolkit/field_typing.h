#pragma once
// A character on its way into a field of text: KeyPress, then the field's editor.

#include "velmora/platform/screen/control.h"
#include "velmora/platform/toolkit/key_stroke.h"

namespace velmora::toolkit {

/// The widget of a field as far as keys change its text. It knows where the caret stands and brings the text that
/// results into the model.
class TextEditor {
  public:
    virtual ~TextEditor() = default;
    /// In the place of what is selected, else at the caret.
    virtual void insert(char32_t character) = 0;
    /// What is selected, else the character before the caret.
    virtual void erase() = 0;
    /// A line break, in a field of several lines.
    virtual void breakLine() = 0;
};

/// Types one character: the field's KeyPress sees it and may change or swallow it; a field that is not locked is then
/// edited. Enter (13) breaks the line in a field of several lines and changes nothing in others, as Esc (27) and other
/// control characters do nowhere. Gives back what KeyPress made of the character, 0 when it was swallowed. Nothing
/// happens for the character 0.
char32_t typeInto(screen::TextBox& box, char32_t character, TextEditor& editor);

}  // namespace velmora::toolkit
