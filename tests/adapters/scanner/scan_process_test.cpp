#include "velmora/adapters/scanner/scan_process.h"

#include <csignal>
#include <fstream>
#include <sstream>
#include <thread>

#include <gmock/gmock.h>

#include "velmora/platform/runtime/errors.h"

#include "support/temporary_folder.h"

namespace velmora::scanner {
namespace {

using ::testing::HasSubstr;
using namespace std::chrono_literals;

constexpr auto grace = 300ms;

/// Programs in the place of velmora-scan that do what a back end might bring it to.
class ScanProcessTest : public ::testing::Test {
  protected:
    ScanProcessTest() { ::setenv("TMPDIR", temporary.path().c_str(), 1); }
    ~ScanProcessTest() override { ::unsetenv("TMPDIR"); }

    /// `$ME` is a file that bears the number of the process.
    ScanProcess program(const std::string& script) {
        const std::filesystem::path path = folder.path() / "program";
        std::ofstream(path) << "#!/bin/sh\necho $$ >'" << me().string() << "'\n" << script;
        std::filesystem::permissions(path, std::filesystem::perms::owner_all);
        return ScanProcess(path.string(), grace);
    }
    std::filesystem::path me() const { return folder.path() / "me"; }
    bool runs() const {
        pid_t process = 0;
        std::ifstream(me()) >> process;
        return process > 0 && ::kill(process, 0) == 0;
    }
    bool hasStarted() const { return std::filesystem::exists(me()) && std::filesystem::file_size(me()) > 0; }

    struct Failure {
        long number = 0;
        std::string text = "no error";
    };
    Failure failure(ScanProcess source) {
        try {
            source.scan("test:0", watch);
        } catch (const runtime::RuntimeError& e) {
            return {e.number(), e.description()};
        }
        return {};
    }

    /// Scans, and cancels as soon as the program runs.
    std::optional<Image> cancelled(ScanProcess source) {
        std::thread user([this] {
            while (!hasStarted()) {
                std::this_thread::sleep_for(5ms);
            }
            watch.cancel();
        });
        auto page = source.scan("test:0", watch);
        user.join();
        return page;
    }

    support::TemporaryFolder folder;
    support::TemporaryFolder temporary;
    Watch watch;
};

constexpr const char* hello = "printf 'velmora-scan\\t1\\n'\n";

TEST_F(ScanProcessTest, TheProgramIsToldWhatToDoAndItsAnswerIsRead) {
    const auto devices =
        program(std::string(hello) + "printf 'device\\t%s\\t%s\\n' \"$#\" \"$1\"\necho end\n").devices(watch);
    ASSERT_EQ(devices.size(), 1u);
    EXPECT_EQ(devices[0].name, "1");
    EXPECT_EQ(devices[0].title, "list");
    const auto page = program(std::string(hello) +
                              "[ \"$1 $2 $#\" = 'scan my scanner:1 2' ] || exit 1\n"
                              "printf 'progress\\t1\\npage\\t2\\t1\\t1\\t200\\t100\\nabend\\n'\n")
                          .scan("my scanner:1", watch);
    ASSERT_TRUE(page.has_value());
    EXPECT_EQ(page->samples, (std::vector<std::uint8_t>{'a', 'b'}));
    EXPECT_EQ(page->dotsPerInchDown, 100);
    EXPECT_FALSE(runs());
}

TEST_F(ScanProcessTest, AnAnswerWithoutAPageIsTheUsersCancellingAtTheDevice) {
    EXPECT_FALSE(program(std::string(hello) + "echo end\n").scan("test:0", watch).has_value());
}

TEST_F(ScanProcessTest, AProgramThatIsNotThereIsToldWithItsPath) {
    const std::string path = (folder.path() / "missing").string();
    const Failure error = failure(ScanProcess(path));
    EXPECT_EQ(error.number, 53);
    EXPECT_THAT(error.text, HasSubstr("No se puede iniciar el programa que habla con el escáner:\n" + path + "\n"));
}

TEST_F(ScanProcessTest, ACrashIsToldWhereverItComes) {
    const std::string halfAPage = "printf 'page\\t2\\t2\\t1\\t200\\t200\\nab'\n";
    for (const std::string& script :
         {std::string("kill -SEGV $$\n"), hello + std::string("kill -SEGV $$\n"), hello + halfAPage + "kill -KILL $$\n",
          hello + halfAPage, std::string("exit 0\n"), hello + halfAPage + "printf 'cd'\nexit 0\n"}) {
        const Failure error = failure(program(script));
        EXPECT_EQ(error.number, 57) << script;
        EXPECT_EQ(error.text, "El programa que habla con el escáner ha terminado de forma inesperada.") << script;
    }
    EXPECT_TRUE(temporary.files().empty());
}

TEST_F(ScanProcessTest, WhatTheProgramTellsInWordsComesBack) {
    const Failure error = failure(program(std::string(hello) + "printf 'error\\t57\\tNo hay papel.\\n'\nexit 1\n"));
    EXPECT_EQ(error.number, 57);
    EXPECT_EQ(error.text, "No hay papel.");
}

TEST_F(ScanProcessTest, AProgramThatSaysSomethingElseIsRefusedAndEnded) {
    const Failure error = failure(program("echo hello\nexec sleep 60\n"));
    EXPECT_EQ(error.text, "El programa que habla con el escáner da una respuesta que no se entiende.");
    EXPECT_FALSE(runs());
}

TEST_F(ScanProcessTest, ACancelledProgramHearsItOnItsInput) {
    const std::string heard = (folder.path() / "heard").string();
    EXPECT_FALSE(cancelled(program(hello + ("cat >/dev/null\necho yes >'" + heard + "'\n"))).has_value());
    EXPECT_TRUE(std::filesystem::exists(heard));
    EXPECT_FALSE(runs());
}

TEST_F(ScanProcessTest, ACancelledProgramThatHangsIsKilled) {
    const auto before = std::chrono::steady_clock::now();
    EXPECT_FALSE(cancelled(program(std::string(hello) + "trap '' TERM HUP\nexec sleep 60\n")).has_value());
    EXPECT_LT(std::chrono::steady_clock::now() - before, 10s);
    EXPECT_FALSE(runs());
    EXPECT_TRUE(temporary.files().empty());
}

}  // namespace
}  // namespace velmora::scanner
