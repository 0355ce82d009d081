#pragma once
// A file of settings: names with texts, one a line.

#include <filesystem>
#include <map>
#include <stdexcept>
#include <string>

namespace velmora::settings {

using Entries = std::map<std::string, std::string>;

/// Why settings could not be saved; Spanish, for the user.
class NotSaved : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// What the file holds; nothing when there is none or it cannot be read. Lines that are not "name=text" are passed
/// over.
Entries readEntries(const std::filesystem::path& file);

/// Puts the entries into the file, making its folder; those that are there under other names stay. A text may have any
/// characters. The file appears complete or stays as it was. Errors: NotSaved.
void writeEntries(const std::filesystem::path& file, const Entries& entries);

/// Bytes as text for an entry, and back; empty for a text that bytesText has not made.
std::string bytesText(const std::string& bytes);
std::string textBytes(const std::string& text);

}  // namespace velmora::settings
