#pragma once
// One way in which the form calculates a figure, in words and numbers.

#include <string>
#include <string_view>
#include <vector>

#include "velmora/estimate/explanation/explanation.h"
#include "velmora/estimate/field_map.h"

namespace velmora::estimate::explaining {

class Ground;

struct Derivation {
    std::string rule;
    std::vector<Input> inputs;
    std::vector<std::string> steps;
    std::string rounding;
    std::string result;  ///< the text that the form writes
};

/// The shop's two rules of rounding, and none.
namespace rounding {
inline constexpr std::string_view cents = "a céntimos, el medio céntimo se aleja de cero";
inline constexpr std::string_view hundredths = "a dos decimales, la mitad se aleja de cero";
inline constexpr std::string_view hundredthsToEven = "a dos decimales, la mitad va al par";
inline constexpr std::string_view wholeToEven = "a un número entero, la mitad va al par";
inline constexpr std::string_view none = "ninguno";
inline constexpr std::string_view shown = "ninguno; el campo muestra dos decimales";
}  // namespace rounding

/// Numbers in words: the default text of a number, two decimals with thousands, and with a unit behind.
std::string plain(double value);
std::string twoDecimals(double value);
std::string millimetres(double value);
std::string kilograms(double value);
std::string euros(double value);
std::string eurosPerKilogram(double value);

/// Collects the parts of a derivation.
class Deriving {
  public:
    explicit Deriving(std::string rule) { made_.rule = std::move(rule); }

    Deriving& with(std::string name, std::string value, std::string source = {});
    /// A field of the form; its source says when it was entered, typed over, or not calculated again.
    Deriving& with(const Ground& ground, std::string name, const TextBox& field, std::string_view unit);
    Deriving& step(std::string line);
    Deriving& rounded(std::string_view words);

    /// The result as the form writes it: in its default text, or under a mask.
    Derivation gives(double result);
    Derivation gives(double result, const char* mask);
    Derivation givesText(std::string result);

  private:
    Derivation made_;
};

/// Whether the text of a field is this result, be it also under the mask with which a field is left.
bool isSameFigure(const std::string& shown, const std::string& result);

}  // namespace velmora::estimate::explaining
