#include "velmora/adapters/com/text.h"

#include <gtest/gtest.h>

namespace velmora::com {
namespace {

TEST(ComText, SpanishLettersAndTheEuroComeBack) {
    EXPECT_EQ(toWide("Piñón €"), L"Pi\u00F1\u00F3n \u20AC");
    EXPECT_EQ(fromWide(L"Pi\u00F1\u00F3n \u20AC"), "Piñón €");
}

TEST(ComText, ACharacterOfTwoUnitsComesBack) {
    EXPECT_EQ(fromWide(toWide("\xF0\x9F\x94\xA9")), "\xF0\x9F\x94\xA9");
}

TEST(ComText, WhatIsNoTextIsReplaced) {
    EXPECT_EQ(toWide("a\xFF"), L"a\uFFFD");
    EXPECT_EQ(fromWide(std::wstring{L'a', static_cast<wchar_t>(0xD800)}), "a\xEF\xBF\xBD");
}

TEST(ComText, AZeroWithinATextStays) {
    EXPECT_EQ(toWide(std::string("a\0b", 3)).size(), 3U);
    EXPECT_EQ(toWide(""), L"");
}

}  // namespace
}  // namespace velmora::com
