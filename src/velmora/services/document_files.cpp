#include "velmora/services/document_files.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "velmora/platform/runtime/errors.h"

namespace velmora::services {

namespace fs = std::filesystem;

namespace {

enum FileError : long { wrongFileName = 52, cannotRead = 3002, cannotWrite = 3004 };

constexpr bool drivesHaveLetters = fs::path::preferred_separator != fs::path::value_type('/');

fs::path toPath(std::string_view utf8) {
    return fs::path(std::u8string(utf8.begin(), utf8.end()));
}

[[noreturn]] void fail(FileError number, const std::string& description) {
    throw runtime::RuntimeError(number, description, "VELMORA.Data");
}

[[noreturn]] void failToRead(const std::string& path) {
    fail(cannotRead, "No se puede leer el fichero " + path);
}

bool isControl(char c) {
    const auto code = static_cast<unsigned char>(c);
    return code < 0x20 || code == 0x7F;
}

/// Takes away a file, or a link that somebody laid there to have another file written; never a folder or a device.
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
    // Chosen C-183: the point is looked for in the name alone: a folder's point is no part of a file's kind.
    const std::string name = nameOfFile(path);
    const std::size_t point = name.find_last_of('.');
    return point == std::string::npos ? std::string() : name.substr(point + 1);
}

std::string safeFileName(std::string_view storedName) {
    // Differs D-181: a stored name never leads out of the temporary folder.
    std::string name = nameOfFile(storedName);
    if (drivesHaveLetters) {
        name.erase(0, name.find_last_of(':') + 1);
    }
    if (name.empty() || name == "." || name == ".." || std::ranges::any_of(name, isControl)) {
        fail(wrongFileName, "El nombre del documento no es un nombre de fichero");
    }
    return name;
}

sql::Bytes readFile(const std::string& path) {
    const fs::path file = toPath(path);
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
    // A file that shrinks or grows meanwhile is being written by somebody: part of it is not the document.
    if (!stream || stream.peek() != std::ifstream::traits_type::eof()) {
        failToRead(path);
    }
    return content;
}

void writeFile(const std::string& path, const sql::Bytes& content) {
    const fs::path file = toPath(path);
    // Differs D-183: a link that lies in the way is replaced, not followed, and a file that could not be finished does
    // not stay. An earlier copy may be closed to writing.
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
    const fs::path file = toPath(path);
    std::error_code ignored;
    const fs::file_status status = fs::status(file, ignored);
    // Chosen C-184: a file that is closed to writing is not deleted, on systems too that would ask the folder alone.
    if (fs::is_regular_file(status) && (status.permissions() & anybodyWrites) != fs::perms::none) {
        fs::remove(file, ignored);
    }
}

}  // namespace velmora::services
