#include "velmora/apps/component_class/type_information.h"

#include "velmora/adapters/com/errors.h"
#include "velmora/adapters/com/ref.h"

namespace velmora::component {

namespace {

constexpr std::wstring_view longPathMark = L"\\\\?\\";
constexpr std::size_t shortestPath = 64;

bool isDrivePath(std::wstring_view path) {
    return path.size() > 1 && path[1] == L':';
}

}  // namespace

std::wstring pathOf(HINSTANCE__* module) {
    std::wstring path(shortestPath, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            break;
        }
        path.resize(path.size() * 2);
    }
    const bool isMarked =
        path.starts_with(longPathMark) && isDrivePath(std::wstring_view(path).substr(longPathMark.size()));
    return isMarked ? path.substr(longPathMark.size()) : path;
}

HRESULT typeInformation(HINSTANCE__* module, REFGUID id, ITypeInfo** out) noexcept {
    com::Ref<ITypeLib> library;
    HRESULT answer = E_FAIL;
    const HRESULT loaded =
        com::guarded(nullptr, [&] { answer = LoadTypeLibEx(pathOf(module).c_str(), REGKIND_NONE, library.out()); });
    if (loaded < 0 || answer < 0) {
        return loaded < 0 ? loaded : answer;
    }
    return library->GetTypeInfoOfGuid(id, out);
}

}  // namespace velmora::component
