#pragma once
// The scanner that SANE brings for tests, and nothing else: it needs no hardware and can be told to fail.

#include <cstdlib>
#include <fstream>
#include <string>

#include "support/temporary_folder.h"

namespace velmora::support {

/// While it lives, SANE knows only these devices. The lines are those of the test device's own configuration.
class TestDevice {
  public:
    explicit TestDevice(const std::string& lines = "number_of_devices 1\n") {
        ::setenv("SANE_CONFIG_DIR", folder().path().c_str(), 1);
        ::unsetenv("SANE_DEFAULT_DEVICE");
        std::ofstream(folder().path() / "dll.conf") << "test\n";
        set(lines);
    }
    ~TestDevice() { ::unsetenv("SANE_DEFAULT_DEVICE"); }
    TestDevice(const TestDevice&) = delete;
    TestDevice& operator=(const TestDevice&) = delete;

    void set(const std::string& lines) { std::ofstream(folder().path() / "test.conf") << lines; }
    /// A machine without any scanner.
    void unplug() { std::ofstream(folder().path() / "dll.conf") << "\n"; }

  private:
    /// The library looks up its folder once in a process.
    static const TemporaryFolder& folder() {
        static const TemporaryFolder one;
        return one;
    }
};

}  // namespace velmora::support
