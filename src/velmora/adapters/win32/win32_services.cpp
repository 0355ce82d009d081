#include "velmora/adapters/win32/win32_services.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include <commdlg.h>
#include <shellapi.h>

#include "velmora/adapters/machine/temporary_folder.h"
#include "velmora/adapters/win32/message_loop.h"
#include "velmora/adapters/win32/module.h"
#include "velmora/adapters/win32/text.h"
#include "velmora/adapters/win32/windows_api.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/system/file_path.h"

namespace velmora::win32 {

namespace {
constexpr std::size_t longestPath = 32768;
}

std::string Win32Services::temporaryFolder() const {
    const auto root = machine::temporaryRoot();
    if (!root) {
        return {};
    }
    std::string folder = system::fileText(*root);
    if (folder.empty() || folder.back() != '\\') {
        folder += '\\';
    }
    return folder;
}

std::wstring filterOfDialog(std::string_view filter) {
    std::wstring result = toWide(filter);
    std::ranges::replace(result, L'|', L'\0');
    result.append(2, L'\0');
    return result;
}

std::optional<std::string> Win32Services::openFileDialog(const system::OpenFileRequest& request) {
    const CreationScope scope;
    const std::wstring filter = filterOfDialog(request.filter);
    const std::wstring title = toWide(request.title);
    std::vector<wchar_t> path(longestPath, L'\0');
    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = ownerOfModal();
    dialog.hInstance = module_;
    dialog.lpstrFilter = filter.c_str();
    dialog.lpstrTitle = title.c_str();
    dialog.lpstrFile = path.data();
    dialog.nMaxFile = static_cast<DWORD>(path.size());
    dialog.Flags = OFN_EXPLORER | OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
    if (GetOpenFileNameW(&dialog)) {
        return fromWide(path.data());
    }
    if (const DWORD error = CommDlgExtendedError(); error != 0) {
        throw runtime::RuntimeError(static_cast<long>(error),
                                    "CommDlgExtendedError " + runtime::CStr(static_cast<std::int64_t>(error)));
    }
    return std::nullopt;
}

int Win32Services::openWithAssociatedProgram(std::string_view path) {
    const HINSTANCE result =
        ShellExecuteW(ownerOfModal(), L"open", toWide(path).c_str(), nullptr, nullptr, SW_SHOWDEFAULT);
    return static_cast<int>(reinterpret_cast<INT_PTR>(result));
}

bool Win32Services::copyToClipboard(std::string_view text) {
    const std::wstring wide = toWide(text);
    const std::size_t bytes = (wide.size() + 1) * sizeof(wchar_t);
    if (!OpenClipboard(ownerOfModal())) {
        return false;
    }
    // The clipboard owns the memory once it has taken it.
    HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes);
    bool taken = false;
    if (memory != nullptr) {
        std::memcpy(GlobalLock(memory), wide.c_str(), bytes);
        GlobalUnlock(memory);
        taken = EmptyClipboard() && SetClipboardData(CF_UNICODETEXT, memory) != nullptr;
        if (!taken) {
            GlobalFree(memory);
        }
    }
    CloseClipboard();
    return taken;
}

}  // namespace velmora::win32
