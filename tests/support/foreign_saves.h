#pragma once
// Another process that saves on the same database.

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include <sys/types.h>

namespace velmora::test {

/// What the other process is to do.
struct SavesAsked {
    std::string database;
    /// The statement of a save without its last word, the key of a row: 1 to `keys`, all over the table.
    std::string statement;
    std::int64_t keys = 1;
    std::int64_t saves = 1;              ///< each a transaction of its own
    std::chrono::microseconds pause{0};  ///< between two saves
};

/// The process runs while the object lives; the destructor waits for its end.
class ForeignSaves {
  public:
    struct Result {
        std::uintmax_t largestWriteAhead = 0;  ///< bytes, looked at after each save
        double seconds = 0;
        double longestSave = 0;  ///< seconds
    };

    /// `program` is one whose main function calls runForeignSaves(). Throws std::runtime_error when it cannot be
    /// started.
    ForeignSaves(const std::string& program, const SavesAsked& asked);
    ~ForeignSaves();
    ForeignSaves(const ForeignSaves&) = delete;
    ForeignSaves& operator=(const ForeignSaves&) = delete;

    bool ended() const;
    /// Does nothing until all saves are made. Throws std::runtime_error when one of them failed.
    Result wait();

  private:
    int results_ = -1;
    pid_t process_ = -1;
};

/// The other process's main function: its exit status when the program was started to save, nothing otherwise.
std::optional<int> runForeignSaves(int argc, char** argv);

}  // namespace velmora::test
