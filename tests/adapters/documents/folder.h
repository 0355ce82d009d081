#pragma once
// A temporary folder of a test's own, and services that look at it.

#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>
#include <unistd.h>

#include "velmora/platform/system/system.h"

namespace velmora::support {

class Folder {
  public:
    Folder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "velmora-test-XXXXXX").string();
        path_ = ::mkdtemp(pattern.data());
    }
    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    const std::filesystem::path& path() const { return path_; }
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

class FolderServices final : public system::Services {
  public:
    explicit FolderServices(const Folder& own) : folder(own.path().string() + "/") {}
    std::string temporaryFolder() const override { return folder; }
    std::optional<std::string> openFileDialog(const system::OpenFileRequest&) override { return std::nullopt; }
    int openWithAssociatedProgram(std::string_view path) override {
        opened.emplace_back(path);
        return answer;
    }

    std::string folder;
    std::vector<std::string> opened;
    int answer = 33;
};

class StoppedClock final : public system::Clock {
  public:
    runtime::Date now() const override { return runtime::Date::of(2026, 1, 15, 10, 0, 0); }
};

/// What a command prints.
inline std::string outputOf(const std::string& command) {
    std::string output;
    FILE* pipe = ::popen((command + " 2>&1").c_str(), "r");
    char buffer[4096];
    for (std::size_t n = 0; (n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;) {
        output.append(buffer, n);
    }
    EXPECT_EQ(::pclose(pipe), 0) << command << "\n" << output;
    return output;
}

}  // namespace velmora::support
