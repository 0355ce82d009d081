#include "velmora/apps/component_class/vmora_object.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "velmora/adapters/com/text.h"
#include "velmora/apps/component_class/class_object.h"
#include "velmora/apps/component_class/registration.h"
#include "velmora/apps/component_class/type_information.h"

#include "adapters/com/fake_host.h"
#include "support/fake_screen.h"
#include "support/no_services.h"

namespace velmora::component {
namespace {

using com::FakeCall;
using com::FakeConnection;
using com::FakeObject;
using com::LateObject;
using com::Ref;
using com::Variant;

/// What a DLL of the tests stands on.
class ScriptedSurroundings final : public Surroundings {
  public:
    ScriptedSurroundings() { current = this; }
    ~ScriptedSurroundings() override { current = nullptr; }
    screen::Screen& screen() override { return scripted; }
    system::Services& services() override { return services_; }
    const system::Clock& clock() override { return clock_; }

    static inline ScriptedSurroundings* current = nullptr;
    support::ScriptedScreen scripted;

  private:
    support::NoServices services_;
    system::SystemClock clock_;
};

const Module scriptedModule{
    .handle = nullptr,
    .makeSurroundings = [](HINSTANCE__*) -> std::unique_ptr<Surroundings> {
        return std::make_unique<ScriptedSurroundings>();
    },
};

/// A host whose connection refuses everything with a number of its own.
struct RefusingHost {
    explicit RefusingHost(int number) {
        connection.refuse("", com::codeOf(number), "No se pudo leer la tabla");
        object->onGet("Connection", connection.object->variant());
    }
    FakeConnection connection;
    Ref<FakeObject> object = FakeObject::make();
};

class VmoraObjectTest : public testing::Test {
  protected:
    VmoraObjectTest() { com::needCom(); }
    ~VmoraObjectTest() override { EXPECT_EQ(canUnload(), S_FALSE); }

    static Ref<VmoraInterface> make() {
        Ref<IClassFactory> factory;
        EXPECT_EQ(classObject(scriptedModule, classId, IID_IClassFactory, factory.outUntyped()), S_OK);
        Ref<VmoraInterface> made;
        EXPECT_EQ(factory->CreateInstance(nullptr, interfaceId, made.outUntyped()), S_OK);
        return made;
    }
    static LateObject late(const Ref<VmoraInterface>& object) {
        return LateObject(Ref<IDispatch>::sharing(object.get()));
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

    Ref<VmoraInterface> instance_ = make();
    LateObject vmora_ = late(instance_);
};

TEST_F(VmoraObjectTest, TheExportPropertyIsGivenBack) {
    EXPECT_EQ(vmora_.get("bExportReport").value(), sql::Value(false));
    vmora_.put("BEXPORTREPORT", Variant::boolean(true));
    EXPECT_EQ(vmora_.get("bExportReport").value(), sql::Value(true));
    vmora_.put("bExportReport", Variant::longNumber(0));
    EXPECT_EQ(vmora_.get("bExportReport").value(), sql::Value(false));
}

TEST_F(VmoraObjectTest, TheSessionIsGivenBackHoweverItWasSet) {
    const auto host = FakeObject::make();
    EXPECT_FALSE(vmora_.getObject("MyBd"));
    vmora_.put("MyBd", host->variant());
    EXPECT_TRUE(vmora_.getObject("MyBd").isSame(host->late()));
    vmora_.putRef("MyBd", LateObject());
    EXPECT_FALSE(vmora_.getObject("MyBd"));
    vmora_.putRef("MyBd", host->late());
    EXPECT_TRUE(vmora_.getObject("MyBd").isSame(host->late()));
    EXPECT_TRUE(host->seen().calls.empty());
}

TEST_F(VmoraObjectTest, OnlyAnObjectIsASession) {
    EXPECT_EQ(errorOfWork([&] { vmora_.put("MyBd", Variant::longNumber(5)); }).number(), runtime::typeMismatch);
}

TEST_F(VmoraObjectTest, WithoutASessionOperationsAreTheObjectError) {
    for (const char* operation : {"jShow", "jShowParametros", "jShowSeguimiento"}) {
        const runtime::RuntimeError error = errorOfWork([&] { vmora_.call(operation); });
        EXPECT_EQ(error.number(), runtime::objectNotSet) << operation;
        EXPECT_EQ(error.description(), "Variable de objeto o bloque With no establecido");
        EXPECT_EQ(error.source(), "VELMORA");
    }
    EXPECT_EQ(errorOfWork([&] { vmora_.call("jShowPropuesta", {Variant::longNumber(1)}); }).number(),
              runtime::objectNotSet);
}

TEST_F(VmoraObjectTest, PrintingAndAProposalBelowOneDoNothing) {
    Variant number = Variant::longNumber(7);
    Variant order = Variant::boolean(false);
    vmora_.call("jPrintPropuesta", {com::Argument::byRef(number), com::Argument::byRef(order)});
    EXPECT_EQ(number.value(), sql::Value(7));
    Variant none = Variant::longNumber(0);
    vmora_.call("jShowPropuesta", {com::Argument::byRef(none)});
    vmora_.call("jShowPropuesta", {Variant::text("-3")});
}

TEST_F(VmoraObjectTest, AScriptsVariablesOfAnyTypeAreTaken) {
    Variant any = Variant::of(sql::Value(0.0));
    VARIANT argument;
    VariantInit(&argument);
    argument.vt = VT_BYREF | VT_VARIANT;
    argument.pvarVal = any.address();
    DISPPARAMS parameters{.rgvarg = &argument, .rgdispidNamedArgs = nullptr, .cArgs = 1, .cNamedArgs = 0};
    EXPECT_EQ(
        instance_->Invoke(member::jShowPropuesta, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr),
        S_OK);
    EXPECT_EQ(any.type(), VT_R8);
}

TEST_F(VmoraObjectTest, OtherArgumentsAreRefused) {
    EXPECT_EQ(errorOfWork([&] { vmora_.call("jShow", {Variant::longNumber(1)}); }).number(), 450);
    EXPECT_EQ(errorOfWork([&] { vmora_.call("jPrintPropuesta", {Variant::longNumber(1)}); }).number(), 450);
    EXPECT_EQ(errorOfWork([&] { vmora_.call("jShowPropuesta", {Variant::text("x")}); }).number(), 13);
    EXPECT_EQ(errorOfWork([&] { vmora_.call("jShowPropuesta", {Variant::of(sql::Value(1e12))}); }).number(),
              runtime::overflow);
    EXPECT_EQ(errorOfWork([&] { vmora_.call("jShowPropuesta", {Variant::omitted()}); }).number(), 449);
    EXPECT_EQ(errorOfWork([&] { vmora_.call("jLoad"); }).number(), 438);
    EXPECT_EQ(errorOfWork([&] { vmora_.put("jShow", Variant::longNumber(1)); }).number(), 438);
}

TEST_F(VmoraObjectTest, AnErrorOfTheHostComesBackToTheHost) {
    RefusingHost host(3021);
    vmora_.putRef("MyBd", host.object->late());
    const runtime::RuntimeError error = errorOfWork([&] { vmora_.call("jShow"); });
    EXPECT_EQ(error.number(), 3021);
    EXPECT_EQ(error.description(), "No se pudo leer la tabla");
    EXPECT_EQ(error.source(), "Host.Provider");
}

TEST_F(VmoraObjectTest, TheSameErrorReachesACallerOfTheInterface) {
    RefusingHost host(3021);
    EXPECT_EQ(instance_->putref_MyBd(host.object.get()), S_OK);
    EXPECT_EQ(instance_->jShowSeguimiento(), com::codeOf(3021));
    Ref<IErrorInfo> told;
    ASSERT_EQ(GetErrorInfo(0, told.out()), S_OK);
    BSTR words = nullptr;
    told->GetDescription(&words);
    EXPECT_EQ(com::fromWide(words), "No se pudo leer la tabla");
    SysFreeString(words);
    EXPECT_EQ(Ref<VmoraInterface>(instance_).as<ISupportErrorInfo>()->InterfaceSupportsErrorInfo(interfaceId), S_OK);
}

TEST_F(VmoraObjectTest, TheInterfaceHasTheSameMembers) {
    VARIANT_BOOL report = VARIANT_FALSE;
    EXPECT_EQ(instance_->put_bExportReport(VARIANT_TRUE), S_OK);
    EXPECT_EQ(instance_->get_bExportReport(&report), S_OK);
    EXPECT_EQ(report, VARIANT_TRUE);
    EXPECT_EQ(vmora_.get("bExportReport").value(), sql::Value(true));
    const auto host = FakeObject::make();
    EXPECT_EQ(instance_->put_MyBd(host.get()), S_OK);
    Ref<IDispatch> session;
    EXPECT_EQ(instance_->get_MyBd(session.out()), S_OK);
    EXPECT_EQ(session.get(), host.get());
    LONG number = 0;
    VARIANT_BOOL order = VARIANT_TRUE;
    EXPECT_EQ(instance_->jShowPropuesta(&number), S_OK);
    EXPECT_EQ(instance_->jPrintPropuesta(&number, &order), S_OK);
    EXPECT_EQ(order, VARIANT_TRUE);
    EXPECT_EQ(instance_->jShowPropuesta(nullptr), E_POINTER);
    EXPECT_EQ(instance_->get_MyBd(nullptr), E_POINTER);
}

TEST_F(VmoraObjectTest, AFormIsShownOnTheDllsScreen) {
    FakeConnection connection;
    connection.answerRows("Select top 1 * from PARDPI", {"PARDPI_ID", "PARDPI_CRE"}, {});
    connection.answerRows("SELECT", {"PARDPI_ID", "PARDPI_NOM"}, {});
    const auto host = FakeObject::make();
    host->onGet("Connection", connection.object->variant());
    vmora_.putRef("MyBd", host->late());
    std::string shown;
    ScriptedSurroundings::current->scripted.queueModal([&](screen::Form& form) {
        shown = form.name() + " " + form.tag();
        // The host may let go of the instance while its form is open.
        vmora_.putRef("MyBd", LateObject());
    });
    const runtime::RuntimeError error = errorOfWork([&] { vmora_.call("jShowParametros"); });
    EXPECT_EQ(error.description(), "");
    EXPECT_EQ(shown, "frmMaterias e");
}

TEST_F(VmoraObjectTest, TheSessionIsReleasedWithTheInstance) {
    const auto host = FakeObject::make();
    {
        const auto other = make();
        late(other).putRef("MyBd", host->late());
        EXPECT_GT(host->references(), 1U);
    }
    vmora_ = LateObject();
    instance_ = Ref<VmoraInterface>();
    EXPECT_EQ(host->references(), 1U);
    EXPECT_EQ(ScriptedSurroundings::current, nullptr);
    instance_ = make();
    vmora_ = late(instance_);
    EXPECT_NE(ScriptedSurroundings::current, nullptr);
}

TEST_F(VmoraObjectTest, OfTwoInstancesEitherMayGoFirst) {
    RefusingHost ofFirst(3001);
    RefusingHost ofSecond(3002);
    vmora_.putRef("MyBd", ofFirst.object->late());
    auto second = make();
    late(second).putRef("MyBd", ofSecond.object->late());
    EXPECT_EQ(errorOfWork([&] { vmora_.call("jShow"); }).number(), 3002) << "the last one serves all operations";
    second = Ref<VmoraInterface>();
    EXPECT_EQ(errorOfWork([&] { vmora_.call("jShow"); }).number(), 3002) << "also when it has gone";
    auto third = make();
    late(third).putRef("MyBd", ofFirst.object->late());
    vmora_ = LateObject();
    instance_ = Ref<VmoraInterface>();
    EXPECT_EQ(errorOfWork([&] { late(third).call("jShow"); }).number(), 3001);
    instance_ = third;
    vmora_ = late(third);
}

TEST_F(VmoraObjectTest, TheModuleMayGoWhenNoInstanceAndNoLockIsLeft) {
    EXPECT_EQ(canUnload(), S_FALSE);
    vmora_ = LateObject();
    instance_ = Ref<VmoraInterface>();
    EXPECT_EQ(canUnload(), S_OK);
    Ref<IClassFactory> factory;
    ASSERT_EQ(classObject(scriptedModule, classId, IID_IClassFactory, factory.outUntyped()), S_OK);
    EXPECT_EQ(canUnload(), S_FALSE);
    factory->LockServer(TRUE);
    factory = Ref<IClassFactory>();
    EXPECT_EQ(canUnload(), S_FALSE);
    ASSERT_EQ(classObject(scriptedModule, classId, IID_IClassFactory, factory.outUntyped()), S_OK);
    factory->LockServer(FALSE);
    factory = Ref<IClassFactory>();
    EXPECT_EQ(canUnload(), S_OK);
    instance_ = make();
}

TEST_F(VmoraObjectTest, NeitherOtherClassesNorPartsOfOtherObjectsAreMade) {
    void* out = nullptr;
    EXPECT_EQ(classObject(scriptedModule, interfaceId, IID_IClassFactory, &out), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(out, nullptr);
    Ref<IClassFactory> factory;
    ASSERT_EQ(classObject(scriptedModule, classId, IID_IClassFactory, factory.outUntyped()), S_OK);
    EXPECT_EQ(factory->CreateInstance(FakeObject::make().get(), IID_IUnknown, &out), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IStream, &out), E_NOINTERFACE);
}

// The type library.

struct DescribedMember {
    std::string name;
    DISPID id;
    INVOKEKIND kind;
    SHORT place;
    friend bool operator==(const DescribedMember&, const DescribedMember&) = default;
};

std::vector<DescribedMember> describedMembers(ITypeInfo& information, WORD count) {
    std::vector<DescribedMember> members;
    for (UINT i = 0; i < count; ++i) {
        FUNCDESC* function = nullptr;
        if (information.GetFuncDesc(i, &function) < 0) {
            continue;
        }
        BSTR name = nullptr;
        information.GetDocumentation(function->memid, &name, nullptr, nullptr, nullptr);
        members.push_back({com::fromWide(name), function->memid, function->invkind,
                           static_cast<SHORT>(function->oVft / static_cast<SHORT>(sizeof(void*)))});
        SysFreeString(name);
        information.ReleaseFuncDesc(function);
    }
    return members;
}

TEST_F(VmoraObjectTest, TheTypeLibraryDescribesTheInterfaceAsItIs) {
    UINT count = 0;
    ASSERT_EQ(instance_->GetTypeInfoCount(&count), S_OK);
    ASSERT_EQ(count, 1U);
    Ref<ITypeInfo> dispatch;
    ASSERT_EQ(instance_->GetTypeInfo(0, 0, dispatch.out()), S_OK);
    // A dual interface has two descriptions; that of its methods is behind the one of its names.
    HREFTYPE reference = 0;
    ASSERT_EQ(dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference), S_OK);
    Ref<ITypeInfo> methods;
    ASSERT_EQ(dispatch->GetRefTypeInfo(reference, methods.out()), S_OK);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(methods->GetTypeAttr(&attributes), S_OK);
    EXPECT_TRUE(IsEqualGUID(attributes->guid, interfaceId));
    const auto members = describedMembers(*methods.get(), attributes->cFuncs);
    methods->ReleaseTypeAttr(attributes);
    const std::vector<DescribedMember> expected{
        {"MyBd", member::MyBd, INVOKE_PROPERTYGET, 7},
        {"MyBd", member::MyBd, INVOKE_PROPERTYPUT, 8},
        {"MyBd", member::MyBd, INVOKE_PROPERTYPUTREF, 9},
        {"bExportReport", member::bExportReport, INVOKE_PROPERTYGET, 10},
        {"bExportReport", member::bExportReport, INVOKE_PROPERTYPUT, 11},
        {"jShow", member::jShow, INVOKE_FUNC, 12},
        {"jShowParametros", member::jShowParametros, INVOKE_FUNC, 13},
        {"jShowPropuesta", member::jShowPropuesta, INVOKE_FUNC, 14},
        {"jPrintPropuesta", member::jPrintPropuesta, INVOKE_FUNC, 15},
        {"jShowSeguimiento", member::jShowSeguimiento, INVOKE_FUNC, 16},
    };
    EXPECT_EQ(members, expected);
    for (const DescribedMember& each : expected) {
        std::wstring name = com::toWide(each.name);
        LPOLESTR names = name.data();
        DISPID id = 0;
        EXPECT_EQ(instance_->GetIDsOfNames(IID_NULL, &names, 1, 0, &id), S_OK);
        EXPECT_EQ(id, each.id);
    }
}

TEST_F(VmoraObjectTest, TheClassIsDescribedWithItsInterface) {
    const auto provider = Ref<VmoraInterface>(instance_).as<IProvideClassInfo>();
    ASSERT_TRUE(provider);
    Ref<ITypeInfo> information;
    ASSERT_EQ(provider->GetClassInfo(information.out()), S_OK);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(information->GetTypeAttr(&attributes), S_OK);
    EXPECT_TRUE(IsEqualGUID(attributes->guid, classId));
    EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
    information->ReleaseTypeAttr(attributes);
}

}  // namespace
}  // namespace velmora::component
