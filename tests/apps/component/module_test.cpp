// velmora.dll as the system and a host's process see it.

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "velmora/adapters/com/errors.h"
#include "velmora/adapters/com/late_object.h"
#include "velmora/adapters/com/text.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/version.h"

#include "adapters/com/fake_host.h"

namespace velmora::com {
namespace {

constexpr CLSID vmoraClass{0x913f6b81, 0x1338, 0x4d7a, {0xbb, 0xad, 0x90, 0x76, 0xfc, 0x6a, 0x20, 0x73}};

/// The file as a program on this machine names it: a path of a Unix file system is on drive Z.
std::wstring componentFile() {
    std::wstring path = toWide(VELMORA_COMPONENT_FILE);
    if (path.starts_with(L'/')) {
        path = L"Z:" + path;
    }
    for (wchar_t& letter : path) {
        letter = letter == L'/' ? L'\\' : letter;
    }
    return path;
}

template <typename Function>
Function entryPoint(HMODULE module, const char* name) {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

class ModuleTest : public testing::Test {
  protected:
    ModuleTest() : module_(LoadLibraryW(componentFile().c_str())) {
        needCom();
        EXPECT_NE(module_, nullptr) << GetLastError();
    }
    ~ModuleTest() override { FreeLibrary(module_); }

    using GetClassObject = HRESULT(WINAPI*)(REFCLSID, REFIID, void**);
    using Plain = HRESULT(WINAPI*)();

    HRESULT call(const char* name) { return entryPoint<Plain>(module_, name)(); }

    LateObject make() {
        Ref<IClassFactory> factory;
        EXPECT_EQ(entryPoint<GetClassObject>(module_, "DllGetClassObject")(vmoraClass, IID_IClassFactory,
                                                                           factory.outUntyped()),
                  S_OK);
        Ref<IDispatch> made;
        EXPECT_EQ(factory->CreateInstance(nullptr, IID_IDispatch, made.outUntyped()), S_OK);
        return LateObject(std::move(made));
    }

    template <typename Work>
    static runtime::RuntimeError errorOfWork(const Work& work) {
        try {
            work();
        } catch (const runtime::RuntimeError& error) {
            return error;
        }
        return {0, ""};
    }

    HMODULE module_;
};

TEST_F(ModuleTest, TheVersionOfTheFileIsThatOfTheProgram) {
    const std::wstring file = componentFile();
    DWORD ignored = 0;
    std::vector<BYTE> information(GetFileVersionInfoSizeW(file.c_str(), &ignored));
    ASSERT_FALSE(information.empty());
    ASSERT_TRUE(GetFileVersionInfoW(file.c_str(), 0, static_cast<DWORD>(information.size()), information.data()));
    void* found = nullptr;
    UINT length = 0;
    ASSERT_TRUE(VerQueryValueW(information.data(), L"\\", &found, &length));
    const auto* fixed = static_cast<const VS_FIXEDFILEINFO*>(found);
    EXPECT_EQ(fixed->dwFileVersionMS, static_cast<DWORD>(platform::majorVersion << 16 | platform::minorVersion));
    EXPECT_EQ(fixed->dwFileVersionLS, static_cast<DWORD>(platform::revision));
    ASSERT_TRUE(VerQueryValueW(information.data(), L"\\StringFileInfo\\0c0a04b0\\FileVersion", &found, &length));
    EXPECT_EQ(fromWide(static_cast<const wchar_t*>(found)), "12.10.0005");
}

TEST_F(ModuleTest, AnInstanceHasTheSevenMembers) {
    const LateObject vmora = make();
    for (const char* member : {"MyBd", "bExportReport", "jShow", "jShowParametros", "jShowPropuesta", "jPrintPropuesta",
                               "jShowSeguimiento"}) {
        EXPECT_TRUE(vmora.has(member)) << member;
    }
    vmora.put("bExportReport", Variant::boolean(true));
    EXPECT_EQ(vmora.get("bExportReport").value(), sql::Value(true));
    EXPECT_EQ(errorOfWork([&] { vmora.call("jShow"); }).number(), runtime::objectNotSet);
}

TEST_F(ModuleTest, ItMayBeUnloadedWhenNoInstanceIsLeft) {
    {
        const LateObject vmora = make();
        EXPECT_EQ(call("DllCanUnloadNow"), S_FALSE);
    }
    EXPECT_EQ(call("DllCanUnloadNow"), S_OK);
}

TEST_F(ModuleTest, UnloadingAndLoadingAgainLeavesAWorkingClass) {
    for (int i = 0; i < 3; ++i) {
        {
            const LateObject vmora = make();
            EXPECT_EQ(errorOfWork([&] { vmora.call("jShowSeguimiento"); }).number(), runtime::objectNotSet);
        }
        ASSERT_EQ(call("DllCanUnloadNow"), S_OK);
        ASSERT_TRUE(FreeLibrary(module_));
        EXPECT_EQ(GetModuleHandleW(L"velmora.dll"), nullptr) << "still loaded after " << i;
        module_ = LoadLibraryW(componentFile().c_str());
        ASSERT_NE(module_, nullptr);
    }
}

TEST_F(ModuleTest, TwoInstancesGoInEitherOrderAndTheHostsObjectsAreReleased) {
    const auto refusing = [](int number) {
        auto connection = std::make_shared<FakeConnection>();
        connection->refuse("", codeOf(number), "rechazada");
        return connection;
    };
    const auto ofFirst = refusing(3001);
    const auto ofSecond = refusing(3002);
    const auto firstHost = FakeObject::make();
    const auto secondHost = FakeObject::make();
    firstHost->onGet("Connection", ofFirst->object->variant());
    secondHost->onGet("Connection", ofSecond->object->variant());
    for (const bool lastGoesFirst : {true, false}) {
        LateObject first = make();
        LateObject second = make();
        first.putRef("MyBd", firstHost->late());
        second.putRef("MyBd", secondHost->late());
        LateObject& going = lastGoesFirst ? second : first;
        const LateObject& staying = lastGoesFirst ? first : second;
        going = LateObject();
        EXPECT_EQ(errorOfWork([&] { staying.call("jShow"); }).number(), 3002);
        EXPECT_EQ(errorOfWork([&] { staying.call("jShow"); }).source(), "Host.Provider");
    }
    EXPECT_EQ(firstHost->references(), 1U);
    EXPECT_EQ(secondHost->references(), 1U);
    EXPECT_EQ(call("DllCanUnloadNow"), S_OK);
}

TEST_F(ModuleTest, RegisteredItIsCreatedByItsName) {
    ASSERT_EQ(call("DllRegisterServer"), S_OK);
    {
        const LateObject vmora = LateObject::tryCreate("VELMORA.VMORA");
        ASSERT_TRUE(vmora);
        EXPECT_EQ(vmora.get("bExportReport").value(), sql::Value(false));
    }
    CoFreeUnusedLibrariesEx(0, 0);
    EXPECT_EQ(call("DllUnregisterServer"), S_OK);
    EXPECT_FALSE(LateObject::tryCreate("VELMORA.VMORA"));
}

}  // namespace
}  // namespace velmora::com
