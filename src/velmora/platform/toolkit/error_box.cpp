#include "velmora/platform/toolkit/error_box.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <string>
#include <utility>

#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/platform/toolkit/message_choices.h"

namespace velmora::toolkit {

namespace {

std::string hexadecimal(std::uint32_t bits) {
    std::array<char, 8> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), bits, 16).ptr;
    return runtime::UCase(std::string_view(digits.data(), static_cast<std::size_t>(end - digits.data())));
}

std::string numberText(long number) {
    std::string decimal = runtime::CStr(std::int64_t{number});
    if (number >= 0) {
        return decimal;
    }
    return decimal + " (" + hexadecimal(static_cast<std::uint32_t>(static_cast<std::int32_t>(number))) + ")";
}

constexpr const char* internal = "Error interno del programa";

bool isWholePath(std::string_view line) {
    const bool onDrive = line.size() > 2 && line[1] == ':' && line[2] == '\\';
    return line.starts_with('/') || line.starts_with("\\\\") || onDrive;
}

std::string_view withoutReturn(std::string_view line) {
    return line.ends_with('\r') ? line.substr(0, line.size() - 1) : line;
}

ErrorReport reportOf(const runtime::RuntimeError& error) {
    ErrorReport report;
    report.words = error.description();
    report.number = "Error " + numberText(error.number());
    // Some errors carry their words in the source alone.
    if (report.words.empty()) {
        report.words = error.source();
    }
    report.details = report.words + "\n\n" + report.number + "\nOrigen: " + error.source();
    report.folder = folderNamedIn(report.words);
    return report;
}

ErrorReport internalReport(const std::string& text) {
    const std::string words = text.empty() ? internal : std::string(internal) + "\n\n" + text;
    return {.words = words, .number = {}, .details = words, .folder = {}};
}

}  // namespace

ErrorReport errorReport(std::exception_ptr error) {
    try {
        std::rethrow_exception(std::move(error));
    } catch (const runtime::RuntimeError& e) {
        return reportOf(e);
    } catch (const std::exception& e) {
        return internalReport(e.what());
    } catch (...) {
        return internalReport({});
    }
}

std::optional<std::string> folderNamedIn(const std::string& text) {
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        const std::string_view line = withoutReturn(std::string_view(text).substr(begin, end - begin));
        if (isWholePath(line)) {
            const std::size_t last = line.find_last_of("/\\");
            return std::string(line.substr(0, last == 0 ? 1 : last));
        }
        begin = end + 1;
    }
    return std::nullopt;
}

screen::MessageBox errorBox(std::exception_ptr error) {
    const ErrorReport report = errorReport(std::move(error));
    return {.text = report.number.empty() ? report.words : report.words + "\n\n" + report.number,
            .icon = screen::Icon::critical,
            .title = std::string(programTitle)};
}

}  // namespace velmora::toolkit
