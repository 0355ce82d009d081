#include <filesystem>
#include <optional>
#include <sstream>
#include <string>

#include <gtest/gtest.h>
#include <stdlib.h>

#include "velmora/adapters/script/script_services.h"

namespace velmora::script {
namespace {

TEST(ScriptServices, KeepTheirFolderClosedToOthers) {
    std::ostringstream out;
    Journal journal(out);
    Answers answers;
    const ScriptServices services(journal, answers);
    const auto mode = std::filesystem::status(services.temporaryFolder()).permissions();
    EXPECT_EQ(mode & std::filesystem::perms::mask, std::filesystem::perms::owner_all);
}

TEST(ScriptServices, HaveNoTemporaryFolderWhereNoneCanBeMade) {
    std::ostringstream out;
    Journal journal(out);
    Answers answers;
    const ScriptServices services(journal, answers, "/dev/null/papeles");
    EXPECT_EQ(services.temporaryFolder(), "");
    const char* set = ::getenv("TMPDIR");
    const std::optional<std::string> before = set == nullptr ? std::nullopt : std::optional<std::string>(set);
    ::setenv("TMPDIR", ".", 1);
    EXPECT_EQ(ScriptServices(journal, answers).temporaryFolder(), "") << "the current folder is none";
    before ? ::setenv("TMPDIR", before->c_str(), 1) : ::unsetenv("TMPDIR");
}

}  // namespace
}  // namespace velmora::script
