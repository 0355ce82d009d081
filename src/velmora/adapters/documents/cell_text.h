#pragma once
// Texts as a spreadsheet's cells can hold them, and the room that they take there.

#include <string>
#include <string_view>

namespace velmora::documents {

/// The text itself, or what a file of the format can hold of it: valid UTF-8 of at most 32.767 UTF-16 units, lines
/// ended by a line feed, control characters turned into blanks and what is no character at all into U+FFFD.
std::string cellText(const std::string& text);

/// Whether `cellText` would leave the text as it is, as far as a quick look tells: false for rare letters too.
bool isPlainCellText(const std::string& text);

/// The widest line of a text in the format's default letters, in pixels; of a long line more than the first few hundred
/// bytes are not looked at.
int pixelsOfText(std::string_view text);

}  // namespace velmora::documents
