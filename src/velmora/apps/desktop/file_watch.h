#pragma once
// Whether the file of an open database is still where it was opened, and can be written.

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

namespace velmora::desktop {

/// POSIX only.
class FileWatch {
  public:
    /// For the database that is open at this path; ":memory:" is always in place.
    explicit FileWatch(const std::string& database);

    /// What has happened since the last call, Spanish, for the user; none when the file is as it was then. Reads the
    /// folder's entry only.
    std::optional<std::string> news();

  private:
    enum class State { inPlace, gone, replaced, readOnly };
    State look() const;

    std::string file_;
    std::pair<std::uint64_t, std::uint64_t> identity_;  ///< device and number of the file
    State told_ = State::inPlace;
};

}  // namespace velmora::desktop
