#include "velmora/apps/component_class/registration.h"

#include <array>
#include <string_view>
#include <vector>

#include "velmora/adapters/com/errors.h"
#include "velmora/apps/component_class/type_information.h"
#include "velmora/apps/component_class/vmora_interface.h"

namespace velmora::component {

namespace {

constexpr std::wstring_view classes = L"Software\\Classes";
/// The system's proxy for interfaces that a type library describes.
constexpr std::wstring_view automationProxy = L"{00020424-0000-0000-C000-000000000046}";

#ifdef _WIN64
constexpr std::wstring_view ownPlatform = L"win64";
constexpr REGSAM otherSize = KEY_WOW64_32KEY;
#else
constexpr std::wstring_view ownPlatform = L"win32";
constexpr REGSAM otherSize = KEY_WOW64_64KEY;
#endif

struct Entry {
    std::wstring key;
    std::wstring name;  ///< empty for the key's own value
    std::wstring value;
};

std::wstring textOf(REFGUID id) {
    constexpr int textLength = 39;
    std::wstring text(textLength, L'\0');
    text.resize(static_cast<std::size_t>(StringFromGUID2(id, text.data(), textLength)) - 1);
    return text;
}

std::wstring classKey() {
    return L"CLSID\\" + textOf(classId);
}

std::wstring interfaceKey() {
    return L"Interface\\" + textOf(interfaceId);
}

std::wstring libraryKey() {
    return L"TypeLib\\" + textOf(libraryId);
}

/// The key of the library's own size of DLL.
std::wstring platformKey() {
    return libraryKey() + L"\\" + libraryVersion + L"\\0\\" + std::wstring(ownPlatform);
}

std::vector<Entry> entriesFor(const std::wstring& path) {
    const std::wstring theClass = classKey();
    const std::wstring theInterface = interfaceKey();
    const std::wstring version = libraryKey() + L"\\" + libraryVersion;
    const std::wstring folder = path.substr(0, path.find_last_of(L'\\'));
    return {
        {.key = progId, .name = L"", .value = progId},
        {.key = std::wstring(progId) + L"\\CLSID", .name = L"", .value = textOf(classId)},
        {.key = theClass, .name = L"", .value = progId},
        {.key = theClass + L"\\InprocServer32", .name = L"", .value = path},
        {.key = theClass + L"\\InprocServer32", .name = L"ThreadingModel", .value = L"Apartment"},
        {.key = theClass + L"\\ProgID", .name = L"", .value = progId},
        {.key = theClass + L"\\Programmable", .name = L"", .value = L""},
        {.key = theClass + L"\\TypeLib", .name = L"", .value = textOf(libraryId)},
        {.key = theClass + L"\\Version", .name = L"", .value = libraryVersion},
        {.key = theInterface, .name = L"", .value = interfaceName},
        {.key = theInterface + L"\\ProxyStubClsid32", .name = L"", .value = std::wstring(automationProxy)},
        {.key = theInterface + L"\\TypeLib", .name = L"", .value = textOf(libraryId)},
        {.key = theInterface + L"\\TypeLib", .name = L"Version", .value = libraryVersion},
        {.key = version, .name = L"", .value = libraryName},
        {.key = version + L"\\FLAGS", .name = L"", .value = L"0"},
        {.key = version + L"\\HELPDIR", .name = L"", .value = folder},
        {.key = platformKey(), .name = L"", .value = path},
    };
}

/// Closes the key.
class OpenKey {
  public:
    OpenKey() = default;
    ~OpenKey() {
        if (key_ != nullptr) {
            RegCloseKey(key_);
        }
    }
    OpenKey(const OpenKey&) = delete;
    OpenKey& operator=(const OpenKey&) = delete;
    HKEY get() const { return key_; }
    HKEY* out() { return &key_; }

  private:
    HKEY key_ = nullptr;
};

std::wstring below(const ClassesPlace& place, const std::wstring& key) {
    return place.folder + L"\\" + key;
}

LSTATUS write(const ClassesPlace& place, const Entry& entry) {
    OpenKey key;
    const LSTATUS made = RegCreateKeyExW(place.hive, below(place, entry.key).c_str(), 0, nullptr,
                                         REG_OPTION_NON_VOLATILE, KEY_WRITE, nullptr, key.out(), nullptr);
    if (made != ERROR_SUCCESS) {
        return made;
    }
    const auto bytes = static_cast<DWORD>((entry.value.size() + 1) * sizeof(wchar_t));
    return RegSetValueExW(key.get(), entry.name.empty() ? nullptr : entry.name.c_str(), 0, REG_SZ,
                          reinterpret_cast<const BYTE*>(entry.value.c_str()), bytes);
}

bool isThere(const ClassesPlace& place, const std::wstring& key, REGSAM view = 0) {
    OpenKey opened;
    return RegOpenKeyExW(place.hive, below(place, key).c_str(), 0, KEY_READ | view, opened.out()) == ERROR_SUCCESS;
}

/// The key with all that is below it.
LSTATUS removeTree(const ClassesPlace& place, const std::wstring& key) {
    if (!isThere(place, key)) {
        return ERROR_SUCCESS;
    }
    const std::wstring path = below(place, key);
    const LSTATUS inside = RegDeleteTreeW(place.hive, path.c_str());
    // Not every system removes the key itself with them.
    return inside == ERROR_SUCCESS && isThere(place, key) ? RegDeleteKeyW(place.hive, path.c_str()) : inside;
}

bool isEmpty(const ClassesPlace& place, const std::wstring& key) {
    OpenKey opened;
    DWORD keys = 0;
    DWORD values = 0;
    return RegOpenKeyExW(place.hive, below(place, key).c_str(), 0, KEY_READ, opened.out()) == ERROR_SUCCESS &&
           RegQueryInfoKeyW(opened.get(), nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values, nullptr, nullptr,
                            nullptr, nullptr) == ERROR_SUCCESS &&
           keys == 0 && values == 0;
}

/// What a place may lack before the first class is registered in it.
constexpr std::array sharedFolders{L"CLSID", L"Interface", L"TypeLib"};
/// A value of our class: those of them that our registration has made.
constexpr const wchar_t* madeFolders = L"VELMORA.MadeFolders";
constexpr wchar_t betweenFolders = L';';

std::wstring missingFolders(const ClassesPlace& place) {
    std::wstring missing;
    for (const wchar_t* folder : sharedFolders) {
        if (!isThere(place, folder)) {
            missing += folder;
            missing += betweenFolders;
        }
    }
    return missing;
}

/// Empty when they were all there.
std::wstring foldersMade(const ClassesPlace& place) {
    std::array<wchar_t, 64> made{};
    auto bytes = static_cast<DWORD>((made.size() - 1) * sizeof(wchar_t));
    OpenKey opened;
    if (RegOpenKeyExW(place.hive, below(place, classKey()).c_str(), 0, KEY_READ, opened.out()) != ERROR_SUCCESS ||
        RegQueryValueExW(opened.get(), madeFolders, nullptr, nullptr, reinterpret_cast<BYTE*>(made.data()), &bytes) !=
            ERROR_SUCCESS) {
        return {};
    }
    return made.data();
}

void removeEmpty(const ClassesPlace& place, const std::wstring& folders) {
    for (const wchar_t* folder : sharedFolders) {
        if (folders.find(folder) != std::wstring::npos && isEmpty(place, folder)) {
            RegDeleteKeyW(place.hive, below(place, folder).c_str());
        }
    }
}

/// Programs of another size see classes and interfaces of their own, but the same names and libraries.
LSTATUS removeFrom(const ClassesPlace& place) {
    const std::wstring made = foldersMade(place);
    LSTATUS first = ERROR_SUCCESS;
    const auto remove = [&](const std::wstring& key) {
        const LSTATUS removed = removeTree(place, key);
        first = first == ERROR_SUCCESS ? removed : first;
    };
    remove(classKey());
    remove(interfaceKey());
    if (isThere(place, classKey(), otherSize)) {
        remove(platformKey());
    } else {
        remove(progId);
        remove(libraryKey());
    }
    removeEmpty(place, made);
    return first;
}

LSTATUS writeAll(const ClassesPlace& place, const std::wstring& path) {
    std::vector<Entry> entries = entriesFor(path);
    const std::wstring missing = missingFolders(place);
    if (!missing.empty()) {
        entries.insert(entries.begin(), {.key = classKey(), .name = madeFolders, .value = missing});
    }
    for (const Entry& entry : entries) {
        const LSTATUS written = write(place, entry);
        if (written != ERROR_SUCCESS) {
            removeFrom(place);
            return written;
        }
    }
    return ERROR_SUCCESS;
}

HRESULT answerOf(LSTATUS status) {
    return HRESULT_FROM_WIN32(static_cast<unsigned long>(status));
}

}  // namespace

ClassesPlaces systemPlaces() {
    return {.machine = {.hive = HKEY_LOCAL_MACHINE, .folder = std::wstring(classes)},
            .user = {.hive = HKEY_CURRENT_USER, .folder = std::wstring(classes)}};
}

HRESULT registerClass(const ClassesPlaces& places, const std::wstring& path) noexcept {
    LSTATUS status = ERROR_SUCCESS;
    const HRESULT answer = com::guarded(nullptr, [&] {
        status = writeAll(places.machine, path);
        if (status == ERROR_SUCCESS) {
            removeFrom(places.user);  // it would hide the machine's
        } else {
            // Chosen C-363: without the right to write the machine's part the class is registered for the user alone.
            status = writeAll(places.user, path);
        }
    });
    return answer < 0 ? answer : answerOf(status);
}

HRESULT unregisterClass(const ClassesPlaces& places) noexcept {
    LSTATUS status = ERROR_SUCCESS;
    const HRESULT answer = com::guarded(nullptr, [&] {
        const LSTATUS ofUser = removeFrom(places.user);
        const LSTATUS ofMachine = removeFrom(places.machine);
        status = ofUser == ERROR_SUCCESS ? ofMachine : ofUser;
    });
    return answer < 0 ? answer : answerOf(status);
}

}  // namespace velmora::component
