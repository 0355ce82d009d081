#include "velmora/apps/workshop_data/cell_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

#include "velmora/apps/workshop_data/references.h"
#include "velmora/platform/runtime/characters.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::workshop_data {

namespace {

constexpr char32_t firstPrintable = 32;
constexpr std::size_t longestNumber = 40;

using Words = std::array<std::string_view, 5>;
constexpr Words yesWords{"SÍ", "SI", "S", "1", "VERDADERO"};
constexpr Words noWords{"NO", "N", "0", "FALSO", "-"};

bool isOneOf(const Words& words, std::string_view text) {
    const std::string capital = runtime::UCase(text);
    return std::ranges::find(words, capital) != words.end();
}

std::string wordsOf(std::span<const Choice> choices, std::int32_t value) {
    const auto found = std::ranges::find(choices, value, &Choice::value);
    return found == choices.end() ? runtime::CStr(std::int64_t{value}) : std::string(found->words);
}

/// A sign, digits, a comma and digits, an exponent: what CStr writes, and nothing that can be read in two ways.
std::string plainForm(std::string_view text) {
    std::string plain;
    for (const char character : text) {
        if (!runtime::isDigit(character) && std::string_view(",+-eE").find(character) == std::string_view::npos) {
            return {};
        }
        plain += character == ',' ? '.' : character;
    }
    return plain.starts_with('+') ? plain.substr(1) : plain;
}

Refusal refused(std::string reason) {
    return {std::move(reason)};
}

std::optional<std::int64_t> wholeNumberOf(std::string_view text) {
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

Refusal noNumber(std::string_view text) {
    if (text.find('.') != std::string_view::npos) {
        return refused("no es un número válido: los decimales llevan coma, y los miles nada");
    }
    return refused("no es un número");
}

template <typename Number>
ReadText withinBounds(const Column& column, Number number) {
    const auto value = static_cast<double>(number);
    if (value < column.least) {
        return refused("debe ser " + runtime::CStr(column.least) + " o más");
    }
    if (value > column.most) {
        return refused("debe ser " + runtime::CStr(column.most) + " o menos");
    }
    return sql::Value(number);
}

ReadText readText(const Table& table, const Column& column, const std::string& text) {
    if (std::ranges::any_of(runtime::toCodePoints(text), [](char32_t c) { return c < firstPrintable; })) {
        return refused("no admite saltos de línea ni caracteres de control");
    }
    const auto most = static_cast<std::size_t>(widthOf(table, column));
    if (runtime::Len(text) > most) {
        return refused("es demasiado largo: admite " + runtime::CStr(static_cast<std::int64_t>(most)) + " letras");
    }
    return sql::Value(text);
}

ReadText readWholeNumber(const Column& column, std::string_view text) {
    const auto number = wholeNumberOf(text);
    if (!number) {
        return numberOf(text) ? refused("debe ser un número entero") : noNumber(text);
    }
    return withinBounds(column, *number);
}

ReadText readNumber(const Column& column, std::string_view text) {
    const auto number = numberOf(text);
    return number ? withinBounds(column, *number) : noNumber(text);
}

ReadText readFlag(const Column& column, std::string_view text) {
    if (isOneOf(yesWords, text)) {
        return sql::Value(1);
    }
    if (isOneOf(noWords, text)) {
        return column.kind == Kind::presence ? sql::Value() : sql::Value(0);
    }
    return refused("debe ser Sí o No");
}

ReadText readChoice(const Column& column, std::string_view text) {
    const std::string capital = runtime::UCase(text);
    const auto number = wholeNumberOf(text);
    for (const Choice& choice : column.choices) {
        if (runtime::UCase(choice.words) == capital || number == choice.value) {
            return sql::Value(choice.value);
        }
    }
    std::string all;
    for (const Choice& choice : column.choices) {
        all += (all.empty() ? "" : ", ") + std::string(choice.words);
    }
    return refused("debe ser uno de: " + all);
}

ReadText readReference(const Column& column, std::string_view text, const References& references) {
    const auto key = references.keyOf(*column.reference, text);
    if (!key) {
        return refused("no existe " + std::string(column.reference->one) + " " + std::string(text));
    }
    return sql::Value(*key);
}

}  // namespace

std::string countText(std::size_t count) {
    return runtime::CStr(static_cast<std::int64_t>(count));
}

std::optional<double> numberOf(std::string_view text) {
    const std::string plain = text.size() > longestNumber ? std::string() : plainForm(text);
    double number = 0;
    const auto [end, error] = std::from_chars(plain.data(), plain.data() + plain.size(), number);
    const bool whole = !plain.empty() && error == std::errc() && end == plain.data() + plain.size();
    // "-0" is stored and shown as 0.
    return whole && std::isfinite(number) ? std::optional(number == 0 ? 0.0 : number) : std::nullopt;
}

std::string shown(const Column& column, const sql::Value& value, const References& references) {
    if (column.kind == Kind::presence) {
        return std::string(value.isNull() ? noText : yesText);
    }
    if (value.isNull()) {
        return {};
    }
    switch (column.kind) {
        case Kind::text:
            return value.toText();
        case Kind::wholeNumber:
            return runtime::CStr(std::int64_t{value.toLong()});
        case Kind::number:
            return runtime::CStr(value.toDouble());
        case Kind::flag:
        case Kind::presence:
            return std::string(value.toBool() ? yesText : noText);
        case Kind::choice:
            return wordsOf(column.choices, value.toLong());
        case Kind::reference:
            return references.codeOf(*column.reference, value.toLong());
    }
    return {};
}

ReadText read(const Table& table, const Column& column, std::string_view given, const References& references) {
    const std::string text = runtime::Trim(given);
    if (text.empty()) {
        return column.required ? ReadText(refused("falta")) : ReadText(sql::Value());
    }
    switch (column.kind) {
        case Kind::text:
            return readText(table, column, text);
        case Kind::wholeNumber:
            return readWholeNumber(column, text);
        case Kind::number:
            return readNumber(column, text);
        case Kind::flag:
        case Kind::presence:
            return readFlag(column, text);
        case Kind::choice:
            return readChoice(column, text);
        case Kind::reference:
            return readReference(column, text, references);
    }
    return sql::Value();
}

}  // namespace velmora::workshop_data
