#include "velmora/adapters/script/script_services.h"

#include <chrono>
#include <system_error>

#include "velmora/adapters/machine/temporary_folder.h"
#include "velmora/adapters/script/ending.h"
#include "velmora/adapters/script/shown_text.h"
#include "velmora/platform/system/file_path.h"

namespace velmora::script {

namespace {

constexpr int opened = 42;  // any number above 32 means that a program has opened the file
constexpr int fileNotFound = 2;

/// Parses `text` by a mask: a letter stands for a digit, any other character for itself. The digits of each letter form
/// one number of `parts`, in the order of "YMDhms".
bool readMasked(std::string_view text, std::string_view mask, int (&parts)[6]) {
    constexpr std::string_view letters = "YMDhms";
    if (text.size() != mask.size()) {
        return false;
    }
    for (std::size_t i = 0; i < mask.size(); ++i) {
        const auto part = letters.find(mask[i]);
        if (part == std::string_view::npos) {
            if (text[i] != mask[i]) {
                return false;
            }
            continue;
        }
        if (text[i] < '0' || text[i] > '9') {
            return false;
        }
        parts[part] = parts[part] * 10 + (text[i] - '0');
    }
    return true;
}

}  // namespace

std::optional<runtime::Date> momentFrom(std::string_view text) {
    int parts[6] = {};
    if (!readMasked(text, text.size() == 10 ? "YYYY-MM-DD" : "YYYY-MM-DD hh:mm:ss", parts)) {
        return std::nullopt;
    }
    const auto [year, month, day, hour, minute, second] = parts;
    const std::chrono::year_month_day date{std::chrono::year{year}, std::chrono::month{static_cast<unsigned>(month)},
                                           std::chrono::day{static_cast<unsigned>(day)}};
    if (!date.ok() || hour > 23 || minute > 59 || second > 59) {
        return std::nullopt;
    }
    return runtime::Date::of(year, static_cast<unsigned>(month), static_cast<unsigned>(day), hour, minute, second);
}

ScriptServices::~ScriptServices() {
    if (!folder_.empty() && !isKept_) {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
}

std::string ScriptServices::temporaryFolder() const {
    if (isKept_) {
        std::error_code failure;
        std::filesystem::create_directories(folder_, failure);
        return failure ? std::string() : system::fileText(folder_) + "/";
    }
    if (folder_.empty()) {
        const auto root = machine::temporaryRoot();
        const auto made = root ? machine::newFolder(*root, "velmora") : std::nullopt;
        if (!made) {
            return {};
        }
        folder_ = *made;
    }
    return system::fileText(folder_) + "/";
}

std::optional<std::string> ScriptServices::openFileDialog(const system::OpenFileRequest& request) {
    const std::string start = "file title=" + inQuotes(request.title) + " path=";
    auto path = takeFront(answers_.files);
    if (!path) {
        journal_.line(start + "unanswered");
        throw Ending(Status::unanswered, "a file dialog has no file: " + request.title);
    }
    journal_.line(start + (*path ? inQuotes(**path) : "none"));
    return *path;
}

int ScriptServices::openWithAssociatedProgram(std::string_view path) {
    std::error_code failure;
    if (!std::filesystem::exists(system::filePath(path), failure)) {
        return fileNotFound;
    }
    journal_.line("opened " + inQuotes(system::fileText(system::filePath(path).filename())));
    return opened;
}

bool ScriptServices::copyToClipboard(std::string_view text) {
    journal_.line("copied " + inQuotes(text));
    return true;
}

}  // namespace velmora::script
