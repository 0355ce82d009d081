#pragma once
// What a command of the shell prints.

#include <cstdio>
#include <string>

#include <gtest/gtest.h>

namespace velmora::support {

/// Both outputs together. A command that does not end with 0 fails the test.
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
