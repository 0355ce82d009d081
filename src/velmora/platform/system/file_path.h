#pragma once
// Paths as the forms have them, UTF-8, to and from the file system's. On Windows a path made of a narrow text is taken
// in the code page of the machine, so no other way is used.

#include <filesystem>
#include <string>
#include <string_view>

namespace velmora::system {

inline std::filesystem::path filePath(std::string_view utf8) {
    return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}

inline std::string fileText(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return std::string(text.begin(), text.end());
}

}  // namespace velmora::system
