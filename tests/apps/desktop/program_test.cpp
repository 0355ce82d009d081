// The program as a whole, where no window needs to open.

#include <array>
#include <cstdio>
#include <string>

#include <gmock/gmock.h>
#include <sys/wait.h>

#include "velmora/apps/desktop/no_display.h"
#include "velmora/platform/version.h"

namespace velmora::desktop {
namespace {

struct ProgramEnd {
    int status = -1;        ///< -1: ended by a signal
    std::string output;     ///< standard output
    std::string complaint;  ///< standard error output
};

std::string outputAndStatus(const std::string& command, int& status) {
    std::string output;
    FILE* pipe = ::popen(command.c_str(), "r");
    std::array<char, 4096> part{};
    while (const std::size_t got = std::fread(part.data(), 1, part.size(), pipe)) {
        output.append(part.data(), got);
    }
    const int ended = ::pclose(pipe);
    status = WIFEXITED(ended) ? WEXITSTATUS(ended) : -1;
    return output;
}

/// `exec`, so that the status is the program's and not that of a shell that reports a signal as a number.
ProgramEnd run(const std::string& environment, const std::string& arguments) {
    ProgramEnd end;
    const std::string command = "exec env " + environment + " " VELMORA_DESKTOP_PROGRAM " " + arguments;
    end.output = outputAndStatus(command + " 2>/dev/null", end.status);
    int again = 0;
    end.complaint = outputAndStatus(command + " 2>&1 >/dev/null", again);
    EXPECT_EQ(again, end.status);
    return end;
}

constexpr const char* noDisplayAtAll = "-u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM";

TEST(DesktopProgram, SaysItsVersionWithoutADisplay) {
    const ProgramEnd end = run(noDisplayAtAll, "--version");
    EXPECT_EQ(end.status, 0);
    EXPECT_EQ(end.output, "velmora " + platform::version() + "\n");
}

TEST(DesktopProgram, WithoutADisplayItSaysSoAndDoesNotAbort) {
    for (const char* environment : {noDisplayAtAll, "-u WAYLAND_DISPLAY -u QT_QPA_PLATFORM DISPLAY=:9871",
                                    "-u DISPLAY -u WAYLAND_DISPLAY QT_QPA_PLATFORM=nada"}) {
        const ProgramEnd end = run(environment, "--db :memory:");
        EXPECT_EQ(end.status, noDisplay) << environment;
        EXPECT_TRUE(end.output.empty()) << end.output;
        EXPECT_THAT(end.complaint, ::testing::StartsWith("velmora: no hay una pantalla")) << environment;
    }
}

TEST(DesktopProgram, AFileThatDoesNotExistIsNamed) {
    const ProgramEnd end = run(noDisplayAtAll, "/nada/taller.db");
    EXPECT_NE(end.status, 0);
    EXPECT_NE(end.status, -1);
    EXPECT_EQ(end.complaint, "velmora: FICHERO: no existe: /nada/taller.db\nLas opciones: velmora --help\n");
}

}  // namespace
}  // namespace velmora::desktop
