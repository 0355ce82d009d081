#pragma once
// Files on disk that documents are read from and written to. Paths are UTF-8.

#include <string>
#include <string_view>

#include "velmora/platform/sql/value.h"

namespace velmora::services {

/// The part after the last "\" or the platform's last separator; the whole path when it has none.
std::string nameOfFile(std::string_view path);

/// The part after the last point of the file's name; empty when it has none.
std::string extensionOfFile(std::string_view path);

/// A safe file name from a stored name of any origin: its last part, so that it can only denote a file in the folder it
/// is appended to, corrected to what file systems accept: control characters become blanks or are stripped from the
/// ends; above 255 bytes the part before the extension is truncated between characters. Errors: 52 (wrong file name)
/// for a name without characters, "." and "..".
std::string safeFileName(std::string_view storedName);

/// Whether both paths denote the same file on the same device, whatever their spelling and links. False when one of
/// them does not exist.
bool isSameFile(const std::string& path, const std::string& other);

/// The whole content. Errors: 3002, with the file's name in its description, when it is not a file or cannot be opened
/// or read to its end.
sql::Bytes readFile(const std::string& path);

/// Writes the whole content, replacing an existing file; an incomplete file is removed. Errors: 3004, with the file's
/// name in its description.
void writeFile(const std::string& path, const sql::Bytes& content);

/// Deletes the file; a failure is not reported. A read-only file stays.
void deleteFile(const std::string& path);

}  // namespace velmora::services
