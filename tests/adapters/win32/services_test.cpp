#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

#include "velmora/adapters/win32/win32_services.h"
#include "velmora/adapters/win32/windows_api.h"
#include "velmora/platform/system/file_path.h"

#include "win32_hand.h"

namespace velmora::testing {
namespace {

TEST(Services, TheTemporaryFolderExistsAndEndsInASeparator) {
    const std::string folder = win32::Win32Services(GetModuleHandleW(nullptr)).temporaryFolder();
    ASSERT_FALSE(folder.empty());
    EXPECT_EQ(folder.back(), '\\');
    EXPECT_TRUE(std::filesystem::is_directory(system::filePath(folder)));
}

TEST(Services, AMissingFileIsAFailureCode) {
    EXPECT_EQ(win32::Win32Services(GetModuleHandleW(nullptr)).openWithAssociatedProgram("C:\\no\\such\\file.pdf"), 2);
}

TEST(Services, AFileWithoutAProgramIsAFailureCode) {
    win32::Win32Services services(GetModuleHandleW(nullptr));
    const std::string path = services.temporaryFolder() + "plano ñ.no_such_kind";
    std::ofstream(system::filePath(path)) << "x";
    EXPECT_EQ(services.openWithAssociatedProgram(path), 31);
    std::filesystem::remove(system::filePath(path));
}

TEST(Services, ATextIsCopiedToTheClipboard) {
    EXPECT_TRUE(win32::Win32Services(GetModuleHandleW(nullptr)).copyToClipboard("Ø 153,79 mm"));
    ASSERT_TRUE(OpenClipboard(nullptr));
    const auto* copied = static_cast<const wchar_t*>(GlobalLock(GetClipboardData(CF_UNICODETEXT)));
    ASSERT_NE(copied, nullptr);
    EXPECT_EQ(std::wstring(copied), L"Ø 153,79 mm");
    GlobalUnlock(GetClipboardData(CF_UNICODETEXT));
    CloseClipboard();
}

TEST(Services, FiltersBecomeTheSystemsForm) {
    EXPECT_EQ(win32::filterOfDialog("Todos (*.*)|*.*"), std::wstring(L"Todos (*.*)\0*.*\0\0", 17));
    EXPECT_EQ(win32::filterOfDialog(""), std::wstring(2, L'\0'));
}

class FileDialog : public ::testing::Test, protected Win32Hand {};

TEST_F(FileDialog, ACancelledDialogChoosesNothing) {
    win32::Win32Services services(GetModuleHandleW(nullptr));
    bool titled = false;
    whenBoxOpens([&](HWND dialog) {
        wchar_t title[64] = {};
        GetWindowTextW(dialog, title, 64);
        titled = std::wstring(title) == L"Selección de Fichero";
        PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    });
    EXPECT_EQ(services.openFileDialog({.title = "Selección de Fichero", .filter = "Todos (*.*)|*.*"}), std::nullopt);
    EXPECT_TRUE(titled);
}

}  // namespace
}  // namespace velmora::testing
