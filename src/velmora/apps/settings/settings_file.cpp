#include "velmora/apps/settings/settings_file.h"

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <memory>
#include <string_view>
#include <system_error>

#include "velmora/apps/workshop_file/folder_lock.h"
#include "velmora/platform/runtime/one_line.h"
#include "velmora/platform/system/failure_words.h"
#include "velmora/platform/system/file_path.h"

namespace velmora::settings {

namespace fs = std::filesystem;

namespace {

constexpr const char* unfinished = ".nuevo";

[[noreturn]] void refuse(const fs::path& file, const std::error_code& failure) {
    throw NotSaved("No se pueden guardar los ajustes en el fichero\n" + system::fileText(file) + "\n\n" +
                   system::failureWords(failure));
}

std::error_code lastFailure() {
    return {errno, std::generic_category()};
}

std::error_code writeWhole(const fs::path& file, const std::string& content) {
    std::FILE* out = std::fopen(file.c_str(), "wb");
    if (out == nullptr) {
        return lastFailure();
    }
    std::error_code failure;
    if (std::fwrite(content.data(), 1, content.size(), out) != content.size() || std::fflush(out) != 0) {
        failure = lastFailure();
    }
    if (std::fclose(out) != 0 && !failure) {
        failure = lastFailure();
    }
    return failure;
}

/// Removes the draft of a file unless it was moved into place.
class FileDraft {
  public:
    explicit FileDraft(fs::path path) : path_(std::move(path)) {}
    ~FileDraft() {
        std::error_code ignored;
        fs::remove(path_, ignored);
    }
    FileDraft(const FileDraft&) = delete;
    FileDraft& operator=(const FileDraft&) = delete;
    const fs::path& path() const { return path_; }

  private:
    fs::path path_;
};

constexpr std::string_view digitsOf64 = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr int bitsOfDigit = 6;
constexpr int bitsOfByte = 8;

}  // namespace

Entries readEntries(const fs::path& file) {
    Entries entries;
    std::ifstream in(file, std::ios::binary);
    for (std::string line; std::getline(in, line);) {
        const std::size_t middle = line.find('=');
        if (middle != std::string::npos && middle > 0) {
            entries[line.substr(0, middle)] = runtime::fromOneLine(std::string_view(line).substr(middle + 1));
        }
    }
    return entries;
}

void writeEntries(const fs::path& file, const Entries& entries) {
    Entries all = entries;
    all.merge(readEntries(file));
    std::string content;
    for (const auto& [name, text] : all) {
        content += name + "=" + runtime::inOneLine(text) + "\n";
    }
    std::error_code failure;
    if (!file.parent_path().empty() && !fs::create_directories(file.parent_path(), failure) && failure) {
        refuse(file, failure);
    }
    fs::path beside = file;
    beside += unfinished;
    const FileDraft draft(beside);
    if (const std::error_code written = writeWhole(draft.path(), content)) {
        refuse(file, written);
    }
    try {
        workshop_file::syncFile(draft.path());
        fs::rename(draft.path(), file);
    } catch (const std::system_error& e) {
        refuse(file, e.code());
    }
}

std::string bytesText(const std::string& bytes) {
    std::string text;
    std::uint32_t held = 0;
    int bits = 0;
    for (const char c : bytes) {
        held = held << bitsOfByte | static_cast<unsigned char>(c);
        for (bits += bitsOfByte; bits >= bitsOfDigit; bits -= bitsOfDigit) {
            text += digitsOf64[held >> (bits - bitsOfDigit) & 0x3FU];
        }
    }
    if (bits > 0) {
        text += digitsOf64[held << (bitsOfDigit - bits) & 0x3FU];
    }
    return text;
}

std::string textBytes(const std::string& text) {
    std::string bytes;
    std::uint32_t held = 0;
    int bits = 0;
    for (const char c : text) {
        const std::size_t digit = digitsOf64.find(c);
        if (digit == std::string_view::npos) {
            return {};
        }
        held = held << bitsOfDigit | static_cast<std::uint32_t>(digit);
        bits += bitsOfDigit;
        if (bits >= bitsOfByte) {
            bits -= bitsOfByte;
            bytes += static_cast<char>(held >> bits & 0xFFU);
        }
    }
    return bytes;
}

}  // namespace velmora::settings
