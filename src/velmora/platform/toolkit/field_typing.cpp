#include "velmora/platform/toolkit/field_typing.h"

#include <algorithm>

#include "velmora/platform/runtime/text.h"
#include "velmora/platform/screen/form.h"
#include "velmora/platform/screen/places.h"
#include "velmora/platform/toolkit/pasted_number.h"

namespace velmora::toolkit {

namespace {

/// The filter's answer to a character, as if it were typed now.
char32_t filtered(const screen::TextBox& box, char32_t character) {
    screen::KeyPress press{character};
    box.onKeyPress(press);
    return press.character;
}

/// The filter of numeric keys refuses a second comma. So a field that has one takes decimals, too.
bool takesDecimals(const screen::TextBox& box) {
    return box.text().find(',') != std::string::npos || filtered(box, U',') == U',';
}

std::string shortened(std::string_view text) {
    constexpr std::size_t longest = 30;
    const std::string line = runtime::Trim(text.substr(0, text.find_first_of("\r\n\t")));
    return runtime::Len(line) > longest ? runtime::Left(line, longest) + "…" : line;
}

/// A whole number written with a comma keeps its digits before it: "38,00" is 38.
std::string withoutEmptyFraction(const std::string& number) {
    const std::size_t comma = number.find(',');
    const bool empty = comma != std::string::npos && number.find_first_not_of('0', comma + 1) == std::string::npos;
    return empty ? number.substr(0, comma) : number;
}

/// Whether one number results: at most one comma, a minus only in front. Points in the field separate groups.
bool isOneNumber(std::string_view whole) {
    return std::ranges::count(whole, ',') <= 1 && whole.find('-', 1) == std::string_view::npos;
}

class NumberField {
  public:
    NumberField(screen::TextBox& box, const Insertion& insertion) : box_(box), insertion_(insertion) {}

    std::optional<std::string> take() {
        const std::optional<PastedNumber> number = pastedNumber(insertion_.text);
        if (!number) {
            return refuse("no es un número");
        }
        std::string text = number->text;
        if (!takesDecimals(box_)) {
            text = number->pointWasRead ? runtime::Replace(text, ",", "") : withoutEmptyFraction(text);
            if (text.find(',') != std::string::npos) {
                return refuse("no es un número entero");
            }
        } else if (number->pointWasRead) {
            box_.form().status().tellNote("«" + shortened(insertion_.text) + "» se ha leído como " + text);
        }
        const std::string whole = std::string(insertion_.before) + text + std::string(insertion_.after);
        if (!isOneNumber(whole) || (text.front() == '-' && !takesMinus())) {
            return refuse("no cabe en el número de este campo");
        }
        return text;
    }

    std::optional<std::string> refuse(std::string_view reason) {
        box_.form().status().tellNote("«" + shortened(insertion_.text) + "» " + std::string(reason) +
                                      ": no se ha insertado");
        return std::nullopt;
    }

  private:
    /// The filter is asked where it knows that the minus leads; elsewhere the whole text is being replaced.
    bool takesMinus() const { return (!box_.text().empty() && !box_.allSelected()) || filtered(box_, U'-') == U'-'; }

    screen::TextBox& box_;
    const Insertion& insertion_;
};

}  // namespace

char32_t typeInto(screen::TextBox& box, char32_t character, TextEditor& editor) {
    if (character == 0) {
        return 0;
    }
    // Chosen C-301: Enter and Esc reach the field's KeyPress as characters 13 and 27 when the form has let them
    // through.
    screen::KeyPress press{character};
    box.onKeyPress(press);
    const bool breaksLine = press.character == carriageReturn && box.multiLine();
    if (box.locked() || !(breaksLine || editsText(press.character))) {
        return press.character;
    }
    // Typing the selected text again raises no Change but must clear the selection.
    box.clearSelection();
    if (breaksLine) {
        editor.breakLine();
    } else if (press.character == backspace) {
        editor.erase();
    } else {
        editor.insert(press.character);
    }
    return press.character;
}

Holds heldBy(const screen::TextBox& box) {
    const screen::Layout* field = screen::fieldOf(box, box.form().layout());
    return field != nullptr && field->right ? Holds::number : Holds::dayOrCode;
}

bool takesNumbersOnly(const screen::TextBox& box) {
    return box.onKeyPress && filtered(box, U'x') != U'x';
}

bool isRemoval(std::string_view before, std::string_view now) {
    if (now.size() > before.size()) {
        return false;
    }
    const auto same = std::ranges::mismatch(before, now);
    const auto kept = static_cast<std::size_t>(same.in2 - now.begin());
    return before.ends_with(now.substr(kept));
}

// Chosen C-400: a text that was not typed is filtered like typed keys, but as a whole: all of it or nothing. A point
// between digits is the decimal sign unless the text itself says that it separates groups, because the pad's point is
// typed for the comma, too.
std::optional<std::string> filterInsertion(screen::TextBox& box, const Insertion& insertion) {
    if (!takesNumbersOnly(box)) {
        return std::string(insertion.text);
    }
    if (heldBy(box) == Holds::dayOrCode) {
        if (auto day = pastedDay(insertion.text); day && insertion.before.empty() && insertion.after.empty()) {
            return day;
        }
    }
    return NumberField(box, insertion).take();
}

}  // namespace velmora::toolkit
