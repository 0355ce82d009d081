#include "velmora/services/document_files.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/platform/system/file_path.h"

namespace velmora::services {

namespace fs = std::filesystem;

namespace {

enum FileError : long { wrongFileName = 52, cannotRead = 3002, cannotWrite = 3004 };

constexpr bool drivesHaveLetters = fs::path::preferred_separator != fs::path::value_type('/');

[[noreturn]] void fail(FileError number, const std::string& description) {
    throw runtime::RuntimeError(number, description, "VELMORA.Data");
}

[[noreturn]] void failToRead(const std::string& path) {
    fail(cannotRead, "No se puede leer el fichero " + path);
}

/// Longest file name in bytes that common file systems accept.
constexpr std::size_t longestName = 255;

/// Replaces a name that consists of control characters only.
constexpr const char* namelessDocument = "documento";

/// The length in bytes of the control character at the start of the text; 0 for any other character.
std::size_t controlAt(std::string_view text) {
    const auto first = static_cast<unsigned char>(text.front());
    if (first < 0x20 || first == 0x7F) {
        return 1;
    }
    // U+0080 to U+009F
    return first == 0xC2 && text.size() > 1 && static_cast<unsigned char>(text[1]) <= 0x9F ? 2 : 0;
}

/// Replaces control characters by blanks, and strips them and adjacent blanks from both ends.
// Chosen C-276: the replacement of a control character is not specified: a blank, which every viewer can show in a
// title.
std::string withoutControls(const std::string& name) {
    std::string result;
    bool any = false;
    for (std::size_t at = 0; at < name.size();) {
        const std::size_t control = controlAt(std::string_view(name).substr(at));
        result += control > 0 ? ' ' : name[at];
        any = any || control > 0;
        at += std::max<std::size_t>(control, 1);
    }
    return any ? runtime::Trim(result) : name;
}

/// The longest start of the text of at most `most` bytes that does not cut a character.
std::string firstBytes(const std::string& text, std::size_t most) {
    if (text.size() <= most) {
        return text;
    }
    while (most > 0 && (static_cast<unsigned char>(text[most]) & 0xC0) == 0x80) {
        --most;
    }
    return text.substr(0, most);
}

/// A name of at most `longestName` bytes that keeps its extension, unless that would leave no room for the name before
/// it.
std::string shortened(const std::string& name) {
    if (name.size() <= longestName) {
        return name;
    }
    const std::size_t point = name.find_last_of('.');
    const std::size_t ending = point == std::string::npos ? 0 : name.size() - point;
    if (ending == 0 || ending > longestName / 2) {
        return firstBytes(name, longestName);
    }
    return firstBytes(name.substr(0, point), longestName - ending) + name.substr(point);
}

bool namesNoFile(const std::string& name) {
    return name.empty() || name == "." || name == "..";
}

/// Removes a file, or a link placed there to redirect the write; never a folder or a device.
void removeFileOrLink(const fs::path& file) {
    std::error_code ignored;
    const fs::file_status status = fs::symlink_status(file, ignored);
    if (fs::is_regular_file(status) || fs::is_symlink(status)) {
        fs::remove(file, ignored);
    }
}

}  // namespace

std::string nameOfFile(std::string_view path) {
    const std::size_t separator = path.find_last_of("\\/");
    return std::string(separator == std::string_view::npos ? path : path.substr(separator + 1));
}

std::string extensionOfFile(std::string_view path) {
    // Chosen C-183: the point is searched in the name only; a point in a folder's name is not part of the extension.
    const std::string name = nameOfFile(path);
    const std::size_t point = name.find_last_of('.');
    return point == std::string::npos ? std::string() : name.substr(point + 1);
}

std::string safeFileName(std::string_view storedName) {
    // Differs D-181: a stored name never leads outside the temporary folder.
    std::string name = nameOfFile(storedName);
    if (drivesHaveLetters) {
        name.erase(0, name.find_last_of(':') + 1);
    }
    if (namesNoFile(name)) {
        fail(wrongFileName, "El nombre del documento no es un nombre de fichero");
    }
    // Differs D-264: a name that the file system would refuse is corrected, so that its document can be opened.
    name = withoutControls(name);
    return namesNoFile(name) ? namelessDocument : shortened(name);
}

bool isSameFile(const std::string& path, const std::string& other) {
    std::error_code ignored;
    return fs::equivalent(system::filePath(path), system::filePath(other), ignored);
}

sql::Bytes readFile(const std::string& path) {
    const fs::path file = system::filePath(path);
    std::error_code failure;
    if (!fs::is_regular_file(file, failure) || failure) {
        failToRead(path);
    }
    const std::uintmax_t size = fs::file_size(file, failure);
    std::ifstream stream(file, std::ios::binary);
    if (failure || !stream) {
        failToRead(path);
    }
    sql::Bytes content(static_cast<std::size_t>(size));
    stream.read(reinterpret_cast<char*>(content.data()), static_cast<std::streamsize>(content.size()));
    // A file whose size changes while it is read is being written by another program; a part of it must not be stored
    // as the document.
    if (!stream || stream.peek() != std::ifstream::traits_type::eof()) {
        failToRead(path);
    }
    return content;
}

void writeFile(const std::string& path, const sql::Bytes& content) {
    const fs::path file = system::filePath(path);
    // Differs D-183: a link at the target is replaced, not followed, and an incomplete file is removed. An earlier copy
    // may be read-only.
    removeFileOrLink(file);
    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    const bool begun = stream.is_open();
    stream.write(reinterpret_cast<const char*>(content.data()), static_cast<std::streamsize>(content.size()));
    stream.close();
    if (!stream) {
        if (begun) {
            removeFileOrLink(file);
        }
        fail(cannotWrite, "No se puede escribir el fichero " + path);
    }
}

void deleteFile(const std::string& path) {
    constexpr fs::perms anybodyWrites = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    const fs::path file = system::filePath(path);
    std::error_code ignored;
    const fs::file_status status = fs::status(file, ignored);
    // Chosen C-184: a read-only file is not deleted, also on systems where only the folder's permissions decide.
    if (fs::is_regular_file(status) && (status.permissions() & anybodyWrites) != fs::perms::none) {
        fs::remove(file, ignored);
    }
}

}  // namespace velmora::services
