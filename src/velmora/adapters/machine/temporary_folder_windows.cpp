#include <random>
#include <string_view>
#include <system_error>

#include "velmora/adapters/machine/temporary_folder.h"

namespace velmora::machine {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyz0123456789";
constexpr int lettersOfName = 6;
constexpr int mostTries = 100;

std::string randomLetters() {
    std::random_device source;
    std::uniform_int_distribution<std::size_t> letter(0, letters.size() - 1);
    std::string result;
    for (int i = 0; i < lettersOfName; ++i) {
        result += letters[letter(source)];
    }
    return result;
}

}  // namespace

std::optional<fs::path> temporaryRoot() {
    std::error_code failure;
    const fs::path root = fs::temp_directory_path(failure);
    return failure || !root.is_absolute() ? std::nullopt : std::optional(root);
}

// The user's temporary folder is closed to others, and so is what is created in it.
std::optional<fs::path> newFolder(const fs::path& root, const std::string& prefix) {
    for (int i = 0; i < mostTries; ++i) {
        const fs::path folder = root / (prefix + "-" + randomLetters());
        std::error_code failure;
        if (fs::create_directory(folder, failure)) {
            return folder;
        }
        if (failure) {
            return std::nullopt;
        }
    }
    return std::nullopt;
}

}  // namespace velmora::machine
