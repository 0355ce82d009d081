#include "velmora/apps/component_class/registration.h"

#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "velmora/adapters/com/text.h"
#include "velmora/apps/component_class/vmora_interface.h"

namespace velmora::component {
namespace {

const std::wstring path = L"C:\\Programas\\Taller Ñ\\velmora.dll";
const std::string classText = "{913F6B81-1338-4D7A-BBAD-9076FC6A2073}";

/// Every key below one, with its values: "CLSID\{…}" to "=text;ThreadingModel=Apartment;".
using Contents = std::map<std::string, std::string>;

void collect(HKEY key, const std::string& name, Contents& contents) {
    std::string& values = contents[name];
    wchar_t text[256];
    for (DWORD i = 0;; ++i) {
        DWORD length = 256;
        std::wstring value(1024, L'\0');
        auto bytes = static_cast<DWORD>(value.size() * sizeof(wchar_t));
        if (RegEnumValueW(key, i, text, &length, nullptr, nullptr, reinterpret_cast<BYTE*>(value.data()), &bytes) !=
            ERROR_SUCCESS) {
            break;
        }
        value.resize(bytes / sizeof(wchar_t) - 1);
        values += com::fromWide(text) + "=" + com::fromWide(value) + ";";
    }
    for (DWORD i = 0;; ++i) {
        DWORD length = 256;
        if (RegEnumKeyExW(key, i, text, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) {
            break;
        }
        HKEY below = nullptr;
        if (RegOpenKeyExW(key, text, 0, KEY_READ, &below) == ERROR_SUCCESS) {
            collect(below, name + "\\" + com::fromWide(text), contents);
            RegCloseKey(below);
        }
    }
}

class RegistrationTest : public testing::Test {
  protected:
    RegistrationTest() {
        for (const wchar_t* folder :
             {L"Machine\\Classes\\CLSID\\Other", L"Machine\\Classes\\TypeLib", L"User\\Classes"}) {
            HKEY key = nullptr;
            const std::wstring name = std::wstring(root) + L"\\" + folder;
            EXPECT_EQ(
                RegCreateKeyExW(HKEY_CURRENT_USER, name.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr),
                ERROR_SUCCESS);
            RegCloseKey(key);
        }
        machineBefore_ = contents(L"Machine");
        userBefore_ = contents(L"User");
    }
    ~RegistrationTest() override {
        RegDeleteTreeW(HKEY_CURRENT_USER, root);
        RegDeleteKeyW(HKEY_CURRENT_USER, root);
    }

    static ClassesPlace place(const std::wstring& who) {
        return {.hive = HKEY_CURRENT_USER, .folder = std::wstring(root) + L"\\" + who + L"\\Classes"};
    }

    static Contents contents(const std::wstring& who) {
        Contents all;
        HKEY key = nullptr;
        if (RegOpenKeyExW(HKEY_CURRENT_USER, place(who).folder.c_str(), 0, KEY_READ, &key) == ERROR_SUCCESS) {
            collect(key, "", all);
            RegCloseKey(key);
        }
        return all;
    }

    static constexpr const wchar_t* root = L"Software\\VelmoraRegistrationTest";
    ClassesPlaces places_{.machine = place(L"Machine"), .user = place(L"User")};
    Contents machineBefore_;
    Contents userBefore_;
};

TEST_F(RegistrationTest, AHostFindsTheClassByItsName) {
    ASSERT_EQ(registerClass(places_, path), S_OK);
    Contents machine = contents(L"Machine");
    EXPECT_EQ(machine["\\VELMORA.VMORA\\CLSID"], "=" + classText + ";");
    EXPECT_EQ(machine["\\CLSID\\" + classText + "\\InprocServer32"],
              "=" + com::fromWide(path) + ";ThreadingModel=Apartment;");
    EXPECT_EQ(machine["\\CLSID\\" + classText + "\\ProgID"], "=VELMORA.VMORA;");
    EXPECT_EQ(contents(L"User"), userBefore_);
}

TEST_F(RegistrationTest, TheLibraryIsFoundFromClassAndInterface) {
    ASSERT_EQ(registerClass(places_, path), S_OK);
    Contents machine = contents(L"Machine");
    const std::string library = "{F3847173-3256-43F8-9897-9B5C866389E2}";
    const std::string size = sizeof(void*) == 8 ? "win64" : "win32";
    EXPECT_EQ(machine["\\CLSID\\" + classText + "\\TypeLib"], "=" + library + ";");
    EXPECT_EQ(machine["\\Interface\\{7F56F9DC-2477-4AC7-8453-763AB1CEC279}\\TypeLib"], "=" + library + ";Version=1.0;");
    EXPECT_EQ(machine["\\TypeLib\\" + library + "\\1.0\\0\\" + size], "=" + com::fromWide(path) + ";");
    EXPECT_EQ(machine["\\TypeLib\\" + library + "\\1.0\\HELPDIR"], "=C:\\Programas\\Taller Ñ;");
}

TEST_F(RegistrationTest, UnregisteringLeavesTheRegistryAsItWas) {
    ASSERT_EQ(registerClass(places_, path), S_OK);
    EXPECT_NE(contents(L"Machine"), machineBefore_);
    EXPECT_EQ(unregisterClass(places_), S_OK);
    EXPECT_EQ(contents(L"Machine"), machineBefore_);
    EXPECT_EQ(contents(L"User"), userBefore_);
}

TEST_F(RegistrationTest, RegisteringAgainChangesThePathAlone) {
    ASSERT_EQ(registerClass(places_, path), S_OK);
    const Contents first = contents(L"Machine");
    ASSERT_EQ(registerClass(places_, L"D:\\velmora.dll"), S_OK);
    EXPECT_EQ(contents(L"Machine").size(), first.size());
    EXPECT_EQ(unregisterClass(places_), S_OK);
    EXPECT_EQ(contents(L"Machine"), machineBefore_);
}

TEST_F(RegistrationTest, UnregisteringWhatIsNotRegisteredSucceeds) {
    EXPECT_EQ(unregisterClass(places_), S_OK);
    EXPECT_EQ(contents(L"Machine"), machineBefore_);
}

TEST_F(RegistrationTest, AUserWithoutTheMachinesRightsRegistersForHimself) {
    // Nothing that is to last can be written below a key that does not.
    HKEY key = nullptr;
    RegCreateKeyExW(HKEY_CURRENT_USER, place(L"Closed").folder.c_str(), 0, nullptr, REG_OPTION_VOLATILE, KEY_WRITE,
                    nullptr, &key, nullptr);
    RegCloseKey(key);
    const ClassesPlaces places{.machine = place(L"Closed"), .user = place(L"User")};
    const Contents closedBefore = contents(L"Closed");
    ASSERT_EQ(registerClass(places, path), S_OK);
    EXPECT_EQ(contents(L"Closed"), closedBefore);
    EXPECT_EQ(contents(L"User")["\\VELMORA.VMORA\\CLSID"], "=" + classText + ";");
    EXPECT_EQ(unregisterClass(places), S_OK);
    EXPECT_EQ(contents(L"User"), userBefore_);
}

TEST_F(RegistrationTest, TheMachinesRegistrationReplacesTheUsersOwn) {
    ASSERT_EQ(registerClass({.machine = place(L"User"), .user = place(L"Nobody")}, L"D:\\alt\\velmora.dll"), S_OK);
    ASSERT_EQ(registerClass(places_, path), S_OK);
    EXPECT_EQ(contents(L"User"), userBefore_);
    EXPECT_EQ(contents(L"Machine")["\\VELMORA.VMORA\\CLSID"], "=" + classText + ";");
}

TEST_F(RegistrationTest, WhatOthersHaveThereStays) {
    HKEY key = nullptr;
    RegCreateKeyExW(HKEY_CURRENT_USER, (place(L"User").folder + L"\\Interface\\Other").c_str(), 0, nullptr, 0,
                    KEY_WRITE, nullptr, &key, nullptr);
    RegCloseKey(key);
    ASSERT_EQ(registerClass({.machine = place(L"User"), .user = place(L"Nobody")}, path), S_OK);
    EXPECT_EQ(unregisterClass({.machine = place(L"Nobody"), .user = place(L"User")}), S_OK);
    EXPECT_EQ(contents(L"User").count("\\Interface\\Other"), 1U);
    EXPECT_EQ(contents(L"User").count("\\CLSID"), 0U);
}

#ifdef _WIN64
constexpr const wchar_t* realClass = L"Software\\Classes\\CLSID\\{913F6B81-1338-4D7A-BBAD-9076FC6A2073}";

/// A class key as the DLL of 32 bits has it in the real registry, for as long as this lives.
class OtherSizesClass {
  public:
    OtherSizesClass() {
        HKEY key = nullptr;
        EXPECT_EQ(RegCreateKeyExW(HKEY_LOCAL_MACHINE, realClass, 0, nullptr, 0, KEY_WRITE | KEY_WOW64_32KEY, nullptr,
                                  &key, nullptr),
                  ERROR_SUCCESS);
        RegCloseKey(key);
    }
    ~OtherSizesClass() { RegDeleteKeyExW(HKEY_LOCAL_MACHINE, realClass, KEY_WOW64_32KEY, 0); }
    OtherSizesClass(const OtherSizesClass&) = delete;
    OtherSizesClass& operator=(const OtherSizesClass&) = delete;
};

bool isInRegistry(const wchar_t* key) {
    HKEY opened = nullptr;
    const bool found = RegOpenKeyExW(HKEY_LOCAL_MACHINE, key, 0, KEY_READ, &opened) == ERROR_SUCCESS;
    RegCloseKey(opened);
    return found;
}

TEST(RegistrationOfBothSizes, WhatTheOtherSizeNeedsStaysWhileItIsRegistered) {
    const wchar_t* name = L"Software\\Classes\\VELMORA.VMORA";
    const wchar_t* library = L"Software\\Classes\\TypeLib\\{F3847173-3256-43F8-9897-9B5C866389E2}\\1.0";
    const wchar_t* ownLibrary = L"Software\\Classes\\TypeLib\\{F3847173-3256-43F8-9897-9B5C866389E2}\\1.0\\0\\win64";
    {
        const OtherSizesClass other;
        ASSERT_EQ(registerClass(systemPlaces(), path), S_OK);
        EXPECT_EQ(unregisterClass(systemPlaces()), S_OK);
        EXPECT_TRUE(isInRegistry(name));
        EXPECT_TRUE(isInRegistry(library));
        EXPECT_FALSE(isInRegistry(ownLibrary));
        EXPECT_FALSE(isInRegistry(realClass));
    }
    EXPECT_EQ(unregisterClass(systemPlaces()), S_OK);
    EXPECT_FALSE(isInRegistry(name));
    EXPECT_FALSE(isInRegistry(library));
}
#endif

}  // namespace
}  // namespace velmora::component
