#pragma once
// Why a figure of the proposal is what it is: its rule in words, what went in, how it was rounded, and whether it
// stands on the form. Plain data for whoever shows, copies or prints it.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/platform/screen/control.h"

namespace velmora::estimate {

/// The parts of an estimate, in the order in which one follows from the other.
enum class Topic : std::uint8_t { measures, stockSizes, weights, cuts, materials, price };

/// How the value on the form relates to its rule.
enum class Origin : std::uint8_t {
    calculated,  ///< it is what the rule gives for the present values of the form
    typed,       ///< the user has typed another value
    kept,        ///< another value: stored with the proposal, or calculated before something else was changed
    pending,     ///< still zero: nothing has been calculated
};

/// A value that went into a figure.
struct Input {
    std::string name;
    std::string value;   ///< with its unit
    std::string source;  ///< where it comes from; empty when it is another figure of the form
};

struct Explanation {
    const screen::TextBox* field = nullptr;
    Topic topic = Topic::measures;
    std::string title;
    std::string unit;   ///< "mm", "kg", "€", "€/kg"; empty for a number without one
    std::string shown;  ///< the text of the field
    std::string rule;   ///< in words
    std::vector<Input> inputs;
    std::vector<std::string> steps;  ///< intermediate values, or what else is to be known
    std::string rounding;            ///< in words
    std::string result;              ///< what the rule gives; empty when it cannot be applied
    std::string obstacle;            ///< why the rule cannot be applied
    Origin origin = Origin::calculated;
};

std::string_view wordsOf(Topic topic);
/// One word for a list.
std::string_view wordsOf(Origin origin);

/// The explanation as lines of text; the first one is title and value.
std::vector<std::string> linesOf(const Explanation& explanation);

/// The same in one text, its lines separated by '\n'.
std::string textOf(const Explanation& explanation);

}  // namespace velmora::estimate
