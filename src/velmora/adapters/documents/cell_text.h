#pragma once
// Texts as a spreadsheet's cells can hold them, and their width.

#include <string>
#include <string_view>

namespace velmora::documents {

/// The text, converted to what a file of the format can hold: valid UTF-8 of at most 32.767 UTF-16 units, lines ended
/// by a line feed, control characters replaced by blanks and noncharacters by U+FFFD.
std::string cellText(const std::string& text);

/// Fast check whether `cellText` would leave the text unchanged; may be false for rare letters, too.
bool isPlainCellText(const std::string& text);

/// The width in pixels of a text's longest line in the format's default font; only the first few hundred bytes of a
/// line are measured.
int pixelsOfText(std::string_view text);

}  // namespace velmora::documents
