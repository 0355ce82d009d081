#include "velmora/adapters/scan_protocol/messages.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <system_error>
#include <utility>

#include "velmora/platform/runtime/errors.h"

namespace velmora::scanner {

namespace {

constexpr long deviceError = 57;
constexpr std::string_view programName = "velmora-scan";
constexpr std::string_view version = "1";
constexpr std::string_view unknownFraction = "-";
constexpr char separator = '\t';
constexpr std::size_t longestLine = std::size_t{64} * 1024;  // bytes
constexpr double mostSamples = 3.0 * (std::size_t{1} << 30);

[[noreturn]] void refuse() {
    throw runtime::RuntimeError(deviceError,
                                "El programa que habla con el escáner da una respuesta que no se entiende.");
}

struct Escape {
    char character;
    char letter;  ///< after a backslash
};
constexpr std::array escapes{Escape{'\t', 't'}, Escape{'\n', 'n'}, Escape{'\\', '\\'}};

std::string escaped(std::string_view text) {
    std::string result;
    for (const char c : text) {
        const auto* escape = std::ranges::find(escapes, c, &Escape::character);
        if (escape != escapes.end()) {
            result += {'\\', escape->letter};
        } else {
            result += c;
        }
    }
    return result;
}

std::string unescaped(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            result += text[i];
            continue;
        }
        const auto* escape = ++i < text.size() ? std::ranges::find(escapes, text[i], &Escape::letter) : escapes.end();
        if (escape == escapes.end()) {
            refuse();
        }
        result += escape->character;
    }
    return result;
}

template <typename Number>
std::string toText(Number number) {
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
    return {text.data(), end};
}

template <typename Number>
Number toNumber(std::string_view text) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size()) {
        refuse();
    }
    return number;
}

std::string line(std::initializer_list<std::string_view> fields) {
    std::string text;
    for (const std::string_view field : fields) {
        text += (text.empty() ? "" : std::string(1, separator)) + escaped(field);
    }
    return text + '\n';
}

/// The number of samples of a page with this header; an invalid header is refused.
std::size_t samplesOf(const Image& page) {
    const double count = static_cast<double>(page.width) * page.height * page.channels;
    const bool shaped = page.width > 0 && page.height > 0 && (page.channels == 1 || page.channels == 3);
    const bool sized = std::isfinite(page.dotsPerInchAcross) && std::isfinite(page.dotsPerInchDown) &&
                       page.dotsPerInchAcross > 0 && page.dotsPerInchDown > 0;
    if (!shaped || !sized || count > mostSamples) {
        refuse();
    }
    return static_cast<std::size_t>(count);
}

}  // namespace

namespace message {

std::string greeting() {
    return line({programName, version});
}

std::string progress(std::optional<double> fraction) {
    return line({"progress", fraction ? toText(*fraction) : std::string(unknownFraction)});
}

std::string device(const Device& device) {
    return line({"device", device.name, device.title});
}

std::string page(const Image& page) {
    return line({"page", toText(page.width), toText(page.height), toText(page.channels), toText(page.dotsPerInchAcross),
                 toText(page.dotsPerInchDown)});
}

std::string error(long number, std::string_view text) {
    return line({"error", toText(number), text});
}

std::string end() {
    return line({"end"});
}

}  // namespace message

struct AnswerReader::Kind {
    std::string_view name;
    std::size_t fields;  ///< including the name
    void (AnswerReader::*read)(const Fields&);
};

void AnswerReader::take(std::string_view piece) {
    while (!piece.empty()) {
        piece = missing_ > 0 ? takeSamples(piece) : takeLine(piece);
    }
}

std::string_view AnswerReader::takeLine(std::string_view piece) {
    const std::size_t end = piece.find('\n');
    line_ += piece.substr(0, end);
    if (line_.size() > longestLine) {
        refuse();
    }
    if (end == std::string_view::npos) {
        return {};
    }
    readLine(std::exchange(line_, {}));
    return piece.substr(end + 1);
}

std::string_view AnswerReader::takeSamples(std::string_view piece) {
    const std::string_view samples = piece.substr(0, missing_);
    page_->samples.insert(page_->samples.end(), samples.begin(), samples.end());
    missing_ -= samples.size();
    watch_.advance(watch_.fraction());
    return piece.substr(samples.size());
}

void AnswerReader::readLine(std::string_view line) {
    static constexpr std::array kinds{
        Kind{programName, 2, &AnswerReader::readGreeting}, Kind{"progress", 2, &AnswerReader::readProgress},
        Kind{"device", 3, &AnswerReader::readDevice},      Kind{"page", 6, &AnswerReader::readPage},
        Kind{"error", 3, &AnswerReader::readError},        Kind{"end", 1, &AnswerReader::readEnd},
    };
    Fields fields;
    for (std::size_t begin = 0; begin <= line.size();) {
        const std::size_t end = std::min(line.find(separator, begin), line.size());
        fields.push_back(unescaped(line.substr(begin, end - begin)));
        begin = end + 1;
    }
    const auto* kind = std::ranges::find(kinds, fields.front(), &Kind::name);
    const bool inTurn = kind != kinds.end() && greeted_ == (kind != kinds.begin()) && !whole_;
    if (!inTurn || fields.size() != kind->fields) {
        refuse();
    }
    (this->*kind->read)(fields);
}

void AnswerReader::readGreeting(const Fields& fields) {
    if (fields[1] != version) {
        throw runtime::RuntimeError(deviceError, "El programa que habla con el escáner es de otra versión.");
    }
    greeted_ = true;
    watch_.advance(std::nullopt);
}

void AnswerReader::readProgress(const Fields& fields) {
    watch_.advance(fields[1] == unknownFraction ? std::nullopt : std::optional(toNumber<double>(fields[1])));
}

void AnswerReader::readDevice(const Fields& fields) {
    devices_.push_back({fields[1], fields[2]});
    watch_.advance(std::nullopt);
}

void AnswerReader::readPage(const Fields& fields) {
    page_ = Image{.width = toNumber<int>(fields[1]),
                  .height = toNumber<int>(fields[2]),
                  .channels = toNumber<int>(fields[3]),
                  .dotsPerInchAcross = toNumber<double>(fields[4]),
                  .dotsPerInchDown = toNumber<double>(fields[5]),
                  .samples = {}};
    missing_ = samplesOf(*page_);
    watch_.advance(watch_.fraction());
}

void AnswerReader::readError(const Fields& fields) {
    throw runtime::RuntimeError(toNumber<long>(fields[1]), fields[2]);
}

void AnswerReader::readEnd(const Fields& /*fields*/) {
    whole_ = true;
}

}  // namespace velmora::scanner
