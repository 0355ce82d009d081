#include "velmora/platform/toolkit/mnemonics.h"

#include "velmora/platform/runtime/text.h"

namespace velmora::toolkit {

namespace {

using screen::Toolbar;

char32_t capital(char32_t character) {
    return runtime::toCodePoints(runtime::UCase(runtime::toUtf8(character))).front();
}

bool isLetter(char32_t character) {
    const std::string text = runtime::toUtf8(character);
    return runtime::UCase(text) != runtime::LCase(text);
}

std::string withFreeLetterMarked(const std::string& caption, std::u32string& taken) {
    if (caption.find('&') != std::string::npos) {
        return caption;
    }
    std::u32string characters = runtime::toCodePoints(caption);
    for (std::size_t i = 0; i < characters.size(); ++i) {
        const char32_t letter = capital(characters[i]);
        if (isLetter(letter) && taken.find(letter) == std::u32string::npos) {
            taken += letter;
            return runtime::toUtf8(characters.insert(i, 1, U'&'));
        }
    }
    return caption;
}

int itemOf(const Toolbar& bar, char32_t letter) {
    int item = 0;
    for (const std::string& caption : captionsOf(bar)) {
        ++item;
        if (mnemonicOf(caption) == letter) {
            return item;
        }
    }
    return 0;
}

}  // namespace

char32_t mnemonicOf(std::string_view caption) {
    const std::u32string characters = runtime::toCodePoints(caption);
    for (std::size_t i = 0; i + 1 < characters.size(); ++i) {
        if (characters[i] != U'&') {
            continue;
        }
        if (characters[i + 1] != U'&') {
            return capital(characters[i + 1]);
        }
        ++i;
    }
    return 0;
}

std::vector<std::string> captionsOf(const Toolbar& bar) {
    std::vector<std::string> captions;
    std::u32string taken;
    for (const Toolbar::Item& item : bar.items()) {
        captions.push_back(item.caption.empty() ? std::string() : withFreeLetterMarked(item.caption, taken));
    }
    return captions;
}

std::optional<MnemonicTarget> targetOf(const screen::Form& form, char32_t letter) {
    const char32_t wanted = capital(letter);
    for (screen::Control* control : form.controls()) {
        if (!control->canTakeFocus()) {
            continue;
        }
        if (auto* button = dynamic_cast<screen::Button*>(control);
            button != nullptr && mnemonicOf(button->caption()) == wanted) {
            return MnemonicTarget{.button = button};
        }
        if (auto* bar = dynamic_cast<Toolbar*>(control)) {
            if (const int item = itemOf(*bar, wanted); item != 0) {
                return MnemonicTarget{.bar = bar, .item = item};
            }
        }
    }
    return std::nullopt;
}

}  // namespace velmora::toolkit
