#include "velmora/apps/scan/attendant.h"

#include <array>
#include <mutex>

#include <gtest/gtest.h>
#include <unistd.h>

namespace velmora::scan {
namespace {

using namespace std::chrono_literals;

/// A pipe in the place of the standard input.
class AttendantTest : public ::testing::Test {
  protected:
    AttendantTest() : saved_(::dup(STDIN_FILENO)) {
        std::array<int, 2> ends{};
        EXPECT_EQ(::pipe(ends.data()), 0);
        ::dup2(ends[0], STDIN_FILENO);
        ::close(ends[0]);
        input_ = ends[1];
    }
    ~AttendantTest() override {
        closeInput();
        ::dup2(saved_, STDIN_FILENO);
        ::close(saved_);
    }
    AttendantTest(const AttendantTest&) = delete;
    AttendantTest& operator=(const AttendantTest&) = delete;

    void type(const char* text) const { EXPECT_EQ(::write(input_, text, 1), 1); }
    void closeInput() {
        if (input_ >= 0) {
            ::close(std::exchange(input_, -1));
        }
    }

    scanner::Watch watch;

  private:
    int saved_;
    int input_ = -1;
};

/// False when it does not come true within a few seconds.
bool soon(const std::function<bool()>& condition) {
    for (int i = 0; i < 1000; ++i) {
        if (condition()) {
            return true;
        }
        std::this_thread::sleep_for(5ms);
    }
    return false;
}

TEST_F(AttendantTest, TellsHowFarTheWorkIsWhenItHasAdvanced) {
    std::mutex mutex;
    std::vector<std::optional<double>> told;
    const auto count = [&] {
        const std::lock_guard lock(mutex);
        return told.size();
    };
    const Attendant attendant(watch, [&](std::optional<double> fraction) {
        const std::lock_guard lock(mutex);
        told.push_back(fraction);
    });
    watch.advance(0.5);
    EXPECT_TRUE(soon([&] { return count() == 1; }));
    watch.advance(std::nullopt);
    EXPECT_TRUE(soon([&] { return count() == 2; }));
    std::this_thread::sleep_for(100ms);
    const std::lock_guard lock(mutex);
    EXPECT_EQ(told, (std::vector<std::optional<double>>{0.5, std::nullopt}));
}

TEST_F(AttendantTest, TheEndOfTheInputCancelsTheWork) {
    const Attendant attendant(watch, [](auto) {});
    type("x");
    std::this_thread::sleep_for(100ms);
    EXPECT_FALSE(watch.cancelled());
    closeInput();
    EXPECT_TRUE(soon([&] { return watch.cancelled(); }));
}

TEST_F(AttendantTest, AWorkThatDoesNotEndThenTakesTheProcessWithIt) {
    EXPECT_EXIT(
        {
            closeInput();
            ::close(STDIN_FILENO);
            const Attendant attendant(
                watch, [](auto) {}, 50ms);
            std::this_thread::sleep_for(60s);
        },
        ::testing::ExitedWithCode(EXIT_FAILURE), "");
}

}  // namespace
}  // namespace velmora::scan
