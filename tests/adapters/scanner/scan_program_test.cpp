#include "velmora/adapters/scanner/scan_program.h"

#include <fstream>

#include <gtest/gtest.h>

#include "support/temporary_folder.h"

namespace velmora::scanner {
namespace {

namespace fs = std::filesystem;

TEST(ScanProgram, LiesBesideTheProgramsOrWhereAnInstallationHasIt) {
    const support::TemporaryFolder folder;
    const fs::path programs = folder.path() / "bin";
    const fs::path beside = programs / "velmora-scan";
    const fs::path installed = folder.path() / "libexec" / "velmora" / "velmora-scan";
    fs::create_directories(programs);
    fs::create_directories(installed.parent_path());
    EXPECT_EQ(scanProgram(programs), beside.string());
    std::ofstream(installed) << "x";
    EXPECT_EQ(scanProgram(programs), installed.string());
    std::ofstream(beside) << "x";
    EXPECT_EQ(scanProgram(programs), beside.string());
}

TEST(ScanProgram, TheFolderOfTheRunningProgramIsKnown) {
    EXPECT_TRUE(fs::exists(ownFolder() / "test_scanner"));
}

}  // namespace
}  // namespace velmora::scanner
