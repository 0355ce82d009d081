#include "velmora/adapters/script/journal.h"

#include <ostream>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

namespace velmora::script {
namespace {

/// What has left the program: the text up to the last time that it was passed on.
class PassedOn final : public std::stringbuf {
  public:
    std::string text() const { return text_; }

  private:
    int sync() override {
        text_ = str();
        return 0;
    }

    std::string text_;
};

TEST(Journal, WhatItHasToldHasLeftTheProgramAtOnce) {
    PassedOn passedOn;
    std::ostream out(&passedOn);
    Journal journal(out);
    journal.line("told");
    EXPECT_EQ(passedOn.text(), "told\n");
    journal.lines("a\nb\n");
    EXPECT_EQ(passedOn.text(), "told\na\nb\n");
}

}  // namespace
}  // namespace velmora::script
