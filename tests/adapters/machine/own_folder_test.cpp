#include "velmora/adapters/machine/own_folder.h"

#include <fstream>

#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include "velmora/adapters/machine/trusted_folder.h"

#include "support/temporary_folder.h"

namespace velmora::machine {
namespace {

namespace fs = std::filesystem;

/// Replaces the machine's temporary folder by one of the test for the duration of its lifetime.
class TemporaryFolderOfOwn {
  public:
    TemporaryFolderOfOwn() {
        if (const char* before = ::getenv("TMPDIR")) {
            before_ = before;
        }
        use(path_);
    }
    ~TemporaryFolderOfOwn() { before_ ? ::setenv("TMPDIR", before_->c_str(), 1) : ::unsetenv("TMPDIR"); }
    TemporaryFolderOfOwn(const TemporaryFolderOfOwn&) = delete;
    TemporaryFolderOfOwn& operator=(const TemporaryFolderOfOwn&) = delete;

    static void use(const std::string& path) { ::setenv("TMPDIR", path.c_str(), 1); }
    fs::path operator/(const std::string& name) const { return path_ / name; }
    const fs::path& path() const { return path_; }

  private:
    std::optional<std::string> before_;
    support::TemporaryFolder folder_;
    fs::path path_ = fs::canonical(folder_.path());
};

mode_t modeOf(const fs::path& path) {
    struct stat status {};
    EXPECT_EQ(::lstat(path.c_str(), &status), 0) << path;
    return status.st_mode & 07777;
}

std::string ownName() {
    return "velmora-" + std::to_string(::geteuid());
}

class OwnFolderTest : public ::testing::Test {
  protected:
    /// Checks that a folder other than `ownName()` has been chosen.
    void expectAnother(const std::optional<fs::path>& chosen) {
        ASSERT_TRUE(chosen);
        EXPECT_NE(*chosen, temporary / ownName());
        EXPECT_EQ(chosen->parent_path(), temporary.path());
        EXPECT_TRUE(fs::is_directory(fs::symlink_status(*chosen)));
        EXPECT_EQ(modeOf(*chosen), 0700u);
        EXPECT_EQ(folder.path(), chosen) << "the same one as long as the program runs";
    }

    TemporaryFolderOfOwn temporary;
    OwnFolder folder;
};

TEST_F(OwnFolderTest, IsMadeForThisUserAlone) {
    EXPECT_EQ(folder.path(), temporary / ownName());
    EXPECT_EQ(modeOf(temporary / ownName()), 0700u);
}

TEST_F(OwnFolderTest, IsForThisUserAloneWhateverTheMaskOfNewFiles) {
    for (const mode_t mask : {mode_t{0}, mode_t{0277}}) {
        const mode_t before = ::umask(mask);
        const auto made = folder.path();
        ::umask(before);
        ASSERT_EQ(made, temporary / ownName());
        EXPECT_EQ(modeOf(*made), 0700u);
        fs::remove(*made);
    }
}

TEST_F(OwnFolderTest, IsTheSameOneForEveryProgramAndRunAndKeepsItsFiles) {
    std::ofstream(*folder.path() / "hoja.pdf") << "x";
    OwnFolder other;
    EXPECT_EQ(other.path(), folder.path());
    EXPECT_TRUE(fs::exists(*folder.path() / "hoja.pdf"));
}

TEST_F(OwnFolderTest, OfThisUserIsClosedToTheOthers) {
    fs::create_directory(temporary / ownName());
    ::chmod((temporary / ownName()).c_str(), 0755);
    EXPECT_EQ(folder.path(), temporary / ownName());
    EXPECT_EQ(modeOf(temporary / ownName()), 0700u);
}

TEST_F(OwnFolderTest, ThatOthersCouldWriteInIsNotUsed) {
    fs::create_directory(temporary / ownName());
    for (const mode_t mode : {mode_t{0777}, mode_t{0770}, mode_t{01777}}) {
        ::chmod((temporary / ownName()).c_str(), mode);
        expectAnother(folder.path());
        EXPECT_EQ(modeOf(temporary / ownName()), mode) << "what lies inside may be anybody's";
    }
}

TEST_F(OwnFolderTest, IsNoLinkAndWhatALinkLeadsToIsLeftAlone) {
    fs::create_directory(temporary / "ajena");
    ::chmod((temporary / "ajena").c_str(), 0755);
    fs::create_directory_symlink(temporary / "ajena", temporary / ownName());
    expectAnother(folder.path());
    EXPECT_TRUE(fs::is_symlink(temporary / ownName()));
    EXPECT_EQ(modeOf(temporary / "ajena"), 0755u);
    EXPECT_TRUE(fs::is_empty(temporary / "ajena"));
}

TEST_F(OwnFolderTest, IsNoLinkToNowhere) {
    fs::create_directory_symlink(temporary / "falta", temporary / ownName());
    expectAnother(folder.path());
    EXPECT_FALSE(fs::exists(temporary / "falta"));
}

TEST_F(OwnFolderTest, IsNoFile) {
    std::ofstream(temporary / ownName()) << "x";
    expectAnother(folder.path());
}

TEST_F(OwnFolderTest, OfSomebodyElseIsNotUsed) {
    // For another user this user's folder is a foreign one.
    const uid_t other = ::geteuid() + 1;
    const fs::path foreign = temporary / ("velmora-" + std::to_string(other));
    fs::create_directory(foreign);
    ::chmod(foreign.c_str(), 0700);
    OwnFolder asAnother({.user = other});
    const auto chosen = asAnother.path();
    ASSERT_TRUE(chosen);
    EXPECT_NE(*chosen, foreign);
    EXPECT_EQ(asAnother.path(), chosen);
}

TEST_F(OwnFolderTest, IsLookedAtAgainWithEveryCall) {
    ASSERT_EQ(folder.path(), temporary / ownName());
    fs::remove(temporary / ownName());
    EXPECT_EQ(folder.path(), temporary / ownName()) << "made anew after a clean-up";
    fs::remove(temporary / ownName());
    fs::create_directory_symlink(temporary.path(), temporary / ownName());
    const auto other = folder.path();
    expectAnother(other);
    fs::remove(*other);
    fs::create_directory_symlink(temporary.path(), *other);
    EXPECT_NE(folder.path(), other) << "a link took the other one's place";
}

TEST_F(OwnFolderTest, ThereIsNoneWhereNoneCanBeMade) {
    OwnFolder nowhere({.root = [] { return std::optional<fs::path>("/proc/self/velmora"); }});
    EXPECT_FALSE(nowhere.path());
    OwnFolder rootless({.root = [] { return std::optional<fs::path>(); }});
    EXPECT_FALSE(rootless.path());
}

// The system's own temporary folder.

TEST_F(OwnFolderTest, TheRootIsTheSystemsTemporaryFolder) {
    EXPECT_EQ(temporaryRoot(), temporary.path());
}

TEST_F(OwnFolderTest, ARootThatIsMissingOrNoFolderIsNone) {
    std::ofstream(temporary / "fichero") << "x";
    for (const std::string& root : {(temporary / "falta").string(), (temporary / "fichero").string()}) {
        TemporaryFolderOfOwn::use(root);
        EXPECT_FALSE(temporaryRoot()) << root;
        EXPECT_FALSE(folder.path()) << root;
    }
}

TEST_F(OwnFolderTest, ARelativeRootIsNoneForItHangsOnTheCurrentFolder) {
    const fs::path before = fs::current_path();
    fs::current_path(temporary.path());
    fs::create_directory("aqui");
    for (const char* root : {".", "aqui", "./aqui"}) {
        TemporaryFolderOfOwn::use(root);
        EXPECT_FALSE(temporaryRoot()) << root;
        EXPECT_FALSE(folder.path()) << root;
    }
    fs::current_path(before);
    EXPECT_FALSE(fs::exists(temporary / ownName()));
}

TEST_F(OwnFolderTest, ALinkOfThisUserOnTheWayIsResolvedBeforehand) {
    fs::create_directories(temporary / "grande/temporal");
    fs::create_directory_symlink("grande", temporary / "enlace");
    TemporaryFolderOfOwn::use((temporary / "enlace/../enlace/temporal").string());
    EXPECT_EQ(temporaryRoot(), temporary / "grande/temporal");
    EXPECT_EQ(folder.path(), temporary / "grande/temporal" / ownName());
}

TEST_F(OwnFolderTest, ALinkOfSomebodyElseOnTheWayIsNotFollowed) {
    // The other user meets a link owned neither by root nor by that user. Only root can change the owner; any other
    // user has created the link.
    constexpr uid_t stranger = 54321;
    const uid_t other = ::geteuid() + 1;
    fs::create_directories(temporary / "grande/temporal");
    fs::create_directory_symlink("grande", temporary / "enlace");
    EXPECT_EQ(::lchown((temporary / "enlace").c_str(), stranger, static_cast<gid_t>(-1)), ::geteuid() == 0 ? 0 : -1);
    EXPECT_FALSE(trustedFolder(temporary / "enlace/temporal", other));
    EXPECT_FALSE(trustedFolder(temporary / "enlace", other));
    EXPECT_EQ(trustedFolder(temporary / "grande/temporal", other), temporary / "grande/temporal");
    EXPECT_EQ(trustedFolder(temporary / "enlace/temporal", ::geteuid() == 0 ? stranger : ::geteuid()),
              temporary / "grande/temporal");
}

TEST_F(OwnFolderTest, LinksInARingLeadNowhere) {
    fs::create_directory_symlink("b", temporary / "a");
    fs::create_directory_symlink("a", temporary / "b");
    TemporaryFolderOfOwn::use((temporary / "a").string());
    EXPECT_FALSE(temporaryRoot());
}

TEST_F(OwnFolderTest, ARootWhereAnybodyMayRenameIsNotTrusted) {
    fs::create_directories(temporary / "abierta/dentro");
    ::chmod((temporary / "abierta").c_str(), 0777);
    for (const char* root : {"abierta", "abierta/dentro"}) {
        TemporaryFolderOfOwn::use((temporary / root).string());
        EXPECT_FALSE(temporaryRoot()) << root;
    }
    ::chmod((temporary / "abierta").c_str(), 01777);
    TemporaryFolderOfOwn::use((temporary / "abierta").string());
    EXPECT_EQ(temporaryRoot(), temporary / "abierta") << "as the system's own is";
}

TEST_F(OwnFolderTest, NewFoldersDifferAndAreForThisUserAlone) {
    const auto one = newFolder(temporary.path(), "velmora");
    const auto other = newFolder(temporary.path(), "velmora");
    ASSERT_TRUE(one && other);
    EXPECT_NE(*one, *other);
    EXPECT_EQ(modeOf(*one), 0700u);
    EXPECT_FALSE(newFolder(temporary / "falta", "velmora"));
}

}  // namespace
}  // namespace velmora::machine
