#pragma once
// Numbers in texts that come from elsewhere: from a sheet, a mail, a drawing.

#include <optional>
#include <string>
#include <string_view>

namespace velmora::toolkit {

/// A number as it is typed into a field: digits with at most one comma, a minus in front, no group separators.
struct PastedNumber {
    std::string text;
    bool pointWasRead = false;  ///< "1.234", where the point could also separate a group
};

/// The number in a text; none when there is no number or more than one.
///
/// Blanks around it fall away, and so do a unit behind it ("12 mm", "5 €/kg", without digits of its own but ² and ³), a
/// sign of diameter or currency and a plus before it. A blank, a point or a comma between digits separates a group when
/// the groups have three digits and the number says so itself: the sign occurs more than once, or the other one follows
/// ("1.234,5", "1,234.5", "1 234", "1.234.567"). Otherwise a point or a comma is the decimal sign.
std::optional<PastedNumber> pastedNumber(std::string_view text);

/// The day in a text, "3-1-2026" or "03.01.26", with slashes; none when the text is anything else.
std::optional<std::string> pastedDay(std::string_view text);

}  // namespace velmora::toolkit
