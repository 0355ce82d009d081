#include "velmora/platform/system/failure_words.h"

#include <cerrno>

#include <gtest/gtest.h>

namespace velmora::system {
namespace {

TEST(FailureWordsTest, AreSpanishWhateverTheSystemsLanguageIs) {
    EXPECT_EQ(failureWords(std::make_error_code(std::errc::no_space_on_device)), "No queda sitio en el disco.");
    EXPECT_EQ(failureWords({ENOSPC, std::generic_category()}), "No queda sitio en el disco.");
    EXPECT_EQ(failureWords({ENOSPC, std::system_category()}), "No queda sitio en el disco.");
    EXPECT_EQ(failureWords({EROFS, std::system_category()}), "El disco es de solo lectura.");
}

TEST(FailureWordsTest, AFailureWithoutWordsTellsItsNumber) {
    EXPECT_EQ(failureWords({ECHILD, std::generic_category()}), "Error " + std::to_string(ECHILD) + " del sistema.");
}

}  // namespace
}  // namespace velmora::system
