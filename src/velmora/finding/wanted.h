#pragma once
// What somebody looks for among the proposals, read from one line of text.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmora::finding {

/// Teeth and the pitch in mm, or the module of a gear.
struct WantedToothing {
    std::int32_t teeth = 0;
    std::optional<double> size = {};  ///< not typed yet: any
    bool isModule = false;            ///< written with an M: the size is a module and no pitch

    friend bool operator==(const WantedToothing&, const WantedToothing&) = default;
};

/// A text can mean several things at once: "1001" is the number of a proposal, that of a customer, or a part of a
/// reference.
struct Wanted {
    std::optional<std::int32_t> number = {};  ///< digits only, above 0
    std::optional<WantedToothing> toothing = {};
    std::vector<std::string> words = {};  ///< as typed, at most `mostWords`; empty when nothing is looked for

    bool isEmpty() const { return words.empty(); }
    friend bool operator==(const Wanted&, const Wanted&) = default;
};

/// Further words are left out: each is a condition of a statement.
inline constexpr std::size_t mostWords = 6;

/// Reads "321", "38 x 12,7", "38x12.7", "20 x M2" or words. Any text is understood.
Wanted readWanted(std::string_view text);

}  // namespace velmora::finding
