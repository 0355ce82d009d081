#pragma once
// A whole proposal by keys alone, whoever presses them: Enter goes from field to field in the order of work, F5 saves.

#include <array>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "velmora/platform/screen/form.h"

namespace velmora::support {

/// The keys of a person or of what stands in for one.
struct WalkingKeys {
    std::function<void(std::u32string_view)> type;
    std::function<void(screen::Key)> press;
};

inline void walkProposal(screen::Form& form, const WalkingKeys& keys) {
    struct Step {
        std::string_view field;
        std::u32string_view text;
    };
    constexpr std::array steps{
        Step{"txtPesu(0)", U"1001"}, Step{"Text1(0)", U"12.7"},   Step{"Text1(1)", U"38"},   Step{"Text1(8)", U"7,75"},
        Step{"Text1(2)", U"7.75x"},  Step{"txtPesu(8)", U"12.5"}, Step{"txtPesu(11)", U"3"},
    };
    constexpr int mostStops = 60;
    for (const Step& step : steps) {
        int stops = 0;
        while (form.activeControl() == nullptr || form.activeControl()->fullName() != step.field) {
            if (++stops > mostStops) {
                throw std::logic_error("the keys do not lead to " + std::string(step.field));
            }
            keys.press(screen::Key::tab);
        }
        keys.type(step.text);
        keys.press(screen::Key::enter);
    }
    keys.press(screen::Key::f5);
}

}  // namespace velmora::support
