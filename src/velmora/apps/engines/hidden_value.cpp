#include "velmora/apps/engines/hidden_value.h"

#include <algorithm>
#include <cstring>

namespace velmora::engines {

namespace {

void hide(char* value) {
    if (std::strchr(value, '=') != nullptr) {
        std::fill_n(value, std::strlen(value), '*');
    }
}

}  // namespace

void hideValue(std::string_view option, int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        const std::string_view word = argv[i];
        if (word == option && i + 1 < argc) {
            hide(argv[i + 1]);
        } else if (word.starts_with(option) && word.substr(option.size()).starts_with('=')) {
            hide(argv[i] + option.size() + 1);
        }
    }
}

}  // namespace velmora::engines
