#pragma once
// Files on disk as documents come from them and go back to them. Paths are UTF-8.

#include <string>
#include <string_view>

#include "velmora/platform/sql/value.h"

namespace velmora::services {

/// What follows the last "\" or the last separator of the platform; a path without one is the name.
std::string nameOfFile(std::string_view path);

/// What follows the last point of the file's name; empty when it has none.
std::string extensionOfFile(std::string_view path);

/// The last part of a stored name, which may come from anywhere, so that it can only name a file inside the folder it
/// is put behind, and one that a file system takes: control characters become blanks, or go at an end; of more than 255
/// bytes those before the extension are cut, never within a character. Errors: 52 (wrong file name) for a name without
/// characters, "." and "..".
std::string safeFileName(std::string_view storedName);

/// Whether both paths lead to one file on one device, however they are spelled and through whatever links. False when
/// one of them leads nowhere.
bool isSameFile(const std::string& path, const std::string& other);

/// The whole content. Errors: 3002, its description naming the file, when it is no file, cannot be opened or not be
/// read to its end.
sql::Bytes readFile(const std::string& path);

/// Writes the whole content in place of what stood there; nothing is left of a file that could not be finished.
/// Errors: 3004, its description naming the file.
void writeFile(const std::string& path, const sql::Bytes& content);

/// Deletes the file and says nothing when it cannot be. One that nobody may write in stays.
void deleteFile(const std::string& path);

}  // namespace velmora::services
