#include "velmora/platform/toolkit/key_sheet.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <utility>

#include "velmora/platform/runtime/text.h"
#include "velmora/platform/screen/key_words.h"
#include "velmora/platform/toolkit/control_shortcuts.h"
#include "velmora/platform/toolkit/effective_state.h"
#include "velmora/platform/toolkit/mnemonics.h"

namespace velmora::toolkit {

namespace {

using screen::Control;
using screen::Form;
using screen::Key;

constexpr std::array functionKeyNames{std::pair{Key::f1, "F1"},  std::pair{Key::f2, "F2"}, std::pair{Key::f3, "F3"},
                                      std::pair{Key::f4, "F4"},  std::pair{Key::f5, "F5"}, std::pair{Key::f6, "F6"},
                                      std::pair{Key::f7, "F7"},  std::pair{Key::f8, "F8"}, std::pair{Key::f9, "F9"},
                                      std::pair{Key::f12, "F12"}};

constexpr std::array commonKeys{std::pair{"Enter, Tab", "Campo siguiente"},
                                std::pair{"Mayús+Tab", "Campo anterior"},
                                std::pair{"Ctrl+Enter", "Campo siguiente, también los calculados"},
                                std::pair{"Flechas, RePág, AvPág", "En una lista: otra fila"},
                                std::pair{"Espacio", "En un botón o una casilla: pulsarlo"},
                                std::pair{"Punto del teclado numérico", "En un número: la coma decimal"},
                                std::pair{"Mayús+F1", "Esta hoja"}};

constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";

std::string withoutMark(std::string_view caption) {
    std::string text;
    for (std::size_t i = 0; i < caption.size(); ++i) {
        if (caption[i] == '&' && i + 1 < caption.size()) {
            ++i;
        }
        text += caption[i];
    }
    return text;
}

std::string textOf(const Control& control) {
    const auto* captioned = dynamic_cast<const screen::Captioned*>(&control);
    return withoutMark(captioned != nullptr ? captioned->caption() : control.accessibleName());
}

bool isKeyName(std::string_view name) {
    constexpr std::array others{"ESC", "Enter", "Supr", "Ins"};
    const bool isFunctionKey =
        std::ranges::any_of(functionKeyNames, [&](const auto& key) { return key.second == name; });
    return isFunctionKey || name.starts_with("Ctrl+") || name.starts_with("Mayús+") ||
           std::ranges::find(others, name) != others.end();
}

/// "Grabar (F5)" as "F5" and "Grabar"; nullopt for a caption without a key.
std::optional<KeyLine> namedKey(const std::string& caption) {
    const std::size_t open = caption.rfind('(');
    const std::size_t close = caption.rfind(')');
    if (open == std::string::npos || close == std::string::npos || close < open) {
        return std::nullopt;
    }
    std::string key = caption.substr(open + 1, close - open - 1);
    if (!isKeyName(key)) {
        return std::nullopt;
    }
    return KeyLine{.keys = std::move(key), .words = runtime::Trim(caption.substr(0, open))};
}

class Sheet {
  public:
    explicit Sheet(const Form& form) : form_(form) {
        for (const Control* control : form.controls()) {
            if (control->isVisible()) {
                seen_.push_back(control);
            }
        }
    }

    std::vector<KeyLine> take() {
        addFunctionKeys();
        addNamedKeys();
        addMnemonics();
        for (const auto& [keys, words] : commonKeys) {
            lines_.push_back({keys, words});
        }
        return std::move(lines_);
    }

  private:
    void addFunctionKeys() {
        const auto* teller = dynamic_cast<const screen::TellsKeys*>(&form_);
        const std::vector<screen::KeyWords> told =
            teller != nullptr ? teller->functionKeys() : std::vector<screen::KeyWords>();
        for (const auto& [key, name] : functionKeyNames) {
            const auto own = std::ranges::find(told, key, &screen::KeyWords::key);
            const std::string words = own != told.end() ? std::string(own->words) : captionNaming(name);
            if (!words.empty()) {
                lines_.push_back({name + secondNames(key), words});
            }
        }
    }

    std::string captionNaming(std::string_view key) const {
        for (const Control* control : seen_) {
            if (const auto line = namedKey(textOf(*control)); line && line->keys == key) {
                return line->words;
            }
        }
        return {};
    }

    std::string secondNames(Key key) const {
        std::string names;
        for (const char letter : letters) {
            if (secondNameOf(form_, static_cast<unsigned char>(letter)) == key) {
                names += std::string(", Ctrl+") + letter;
            }
        }
        return names;
    }

    bool isTold(const std::string& keys) const {
        return std::ranges::any_of(
            lines_, [&](const KeyLine& line) { return line.keys == keys || line.keys.starts_with(keys + ","); });
    }

    void addNamedKeys() {
        for (const Control* control : seen_) {
            if (auto line = namedKey(textOf(*control)); line && !isTold(line->keys)) {
                lines_.push_back(*std::move(line));
            }
        }
    }

    void addMnemonics() {
        for (const Control* control : seen_) {
            const auto* button = dynamic_cast<const screen::Button*>(control);
            const char32_t letter = button != nullptr ? mnemonicOf(button->caption()) : U'\0';
            if (letter != 0) {
                const auto named = namedKey(textOf(*button));
                lines_.push_back({"Alt+" + runtime::toUtf8(letter), named ? named->words : textOf(*button)});
            }
        }
    }

    const Form& form_;
    std::vector<const Control*> seen_;
    std::vector<KeyLine> lines_;
};

}  // namespace

std::vector<KeyLine> keyLines(const Form& form) {
    return Sheet(form).take();
}

}  // namespace velmora::toolkit
