#include "velmora/platform/runtime/one_line.h"

#include <gtest/gtest.h>

namespace velmora::runtime {
namespace {

TEST(OneLineTest, ComesBackAsItWas) {
    for (const std::string text : {"", "plain", "two\nlines", "a\r\nb\n", "\\", "\\n", "c:\\new\\", "\n\r\\\n"}) {
        const std::string line = inOneLine(text);
        EXPECT_EQ(line.find_first_of("\r\n"), std::string::npos) << text;
        EXPECT_EQ(fromOneLine(line), text);
    }
}

TEST(OneLineTest, AForeignBackslashLosesNothingElse) {
    EXPECT_EQ(fromOneLine("a\\b"), "ab");
    EXPECT_EQ(fromOneLine("end\\"), "end\\");
}

}  // namespace
}  // namespace velmora::runtime
