#pragma once
// A folder for the files of one test.

#include <filesystem>
#include <random>
#include <string>
#include <vector>

namespace velmora::support {

/// Made with its owner and gone with it, whatever was left in it.
class TemporaryFolder {
  public:
    explicit TemporaryFolder(const std::filesystem::path& parent = std::filesystem::temp_directory_path()) {
        std::random_device source;
        do {
            path_ = parent / ("velmora-test-" + std::to_string(source()));
        } while (!std::filesystem::create_directory(path_));
        std::filesystem::permissions(path_, std::filesystem::perms::owner_all);
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::permissions(path_, std::filesystem::perms::owner_all, ignored);
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    /// A parent whose files stay in memory, where the system has one; for tests that write much.
    static std::filesystem::path inMemory() {
        const std::filesystem::path memory = "/dev/shm";
        return std::filesystem::is_directory(memory) ? memory : std::filesystem::temp_directory_path();
    }

    const std::filesystem::path& path() const { return path_; }
    std::string withSeparator() const { return path_.string() + "/"; }
    /// The path of a file in it.
    std::string file(const std::string& name) const { return (path_ / name).string(); }
    /// The names of what lies in it.
    std::vector<std::string> files() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(path_)) {
            names.push_back(entry.path().filename().string());
        }
        return names;
    }

  private:
    std::filesystem::path path_;
};

}  // namespace velmora::support
