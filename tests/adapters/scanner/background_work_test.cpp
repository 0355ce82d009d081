#include "velmora/adapters/scanner/background_work.h"

#include <atomic>
#include <thread>

#include <gtest/gtest.h>

#include "velmora/platform/runtime/errors.h"

namespace velmora::scanner {
namespace {

using namespace std::chrono_literals;

/// Notes what it is shown, and is cancelled after so many looks.
class Watching final : public screen::Progress {
  public:
    explicit Watching(int patience = 1'000'000) : patience_(patience) {}
    void show(std::string_view text, std::optional<double> fraction) override {
        texts.emplace_back(text);
        lastFraction = fraction;
    }
    bool cancelled() override { return static_cast<int>(texts.size()) >= patience_; }

    std::vector<std::string> texts;
    std::optional<double> lastFraction;

  private:
    int patience_;
};

constexpr Patience hasty{.silence = 200ms, .grace = 200ms};

TEST(BackgroundWork, RunsElsewhereAndShowsHowFarItIs) {
    Watching progress;
    std::thread::id worker;
    runInBackground(
        [&](Watch& watch) {
            worker = std::this_thread::get_id();
            for (int i = 1; i <= 10; ++i) {
                watch.advance(i / 10.0);
                std::this_thread::sleep_for(50ms);
            }
        },
        progress, "Escaneando…", hasty);
    EXPECT_NE(worker, std::this_thread::get_id());
    ASSERT_FALSE(progress.texts.empty());
    EXPECT_EQ(progress.texts.front(), "Escaneando…");
    EXPECT_EQ(progress.lastFraction, 1.0);
}

TEST(BackgroundWork, AnErrorOfTheWorkComesBack) {
    Watching progress;
    try {
        runInBackground([](Watch&) { throw runtime::RuntimeError(57, "atascado"); }, progress, "", hasty);
        FAIL() << "no error";
    } catch (const runtime::RuntimeError& e) {
        EXPECT_EQ(e.description(), "atascado");
    }
}

TEST(BackgroundWork, TheUsersCancellingReachesTheWork) {
    Watching progress(2);
    const auto answer = computeInBackground<int>(
        [](Watch& watch) {
            while (!watch.cancelled()) {
                watch.advance(std::nullopt);
                std::this_thread::sleep_for(5ms);
            }
            return std::optional<int>();
        },
        progress, "", hasty);
    EXPECT_FALSE(answer.has_value());
    EXPECT_EQ(progress.lastFraction, std::nullopt);
}

TEST(BackgroundWork, AWorkThatGivesNoSignOfLifeIsGivenUp) {
    Watching progress;
    const auto release = std::make_shared<std::atomic<bool>>(false);
    const auto before = std::chrono::steady_clock::now();
    try {
        runInBackground(
            [release](Watch&) {
                while (!*release) {
                    std::this_thread::sleep_for(5ms);
                }
            },
            progress, "", hasty);
        FAIL() << "no error";
    } catch (const runtime::RuntimeError& e) {
        EXPECT_EQ(e.number(), 68);
        EXPECT_EQ(e.description(), "El escáner no responde.");
    }
    EXPECT_LT(std::chrono::steady_clock::now() - before, 5s);
    *release = true;
    std::this_thread::sleep_for(50ms);
}

TEST(BackgroundWork, AWorkThatDoesNotEndWhenCancelledIsLeftToItself) {
    Watching progress(1);
    const auto release = std::make_shared<std::atomic<bool>>(false);
    const auto answer = computeInBackground<int>(
        [release](Watch&) {
            while (!*release) {
                std::this_thread::sleep_for(5ms);
            }
            return std::optional(1);
        },
        progress, "", hasty);
    EXPECT_FALSE(answer.has_value());
    *release = true;
    std::this_thread::sleep_for(50ms);
}

}  // namespace
}  // namespace velmora::scanner
