#include "velmora/apps/component_class/vmora_object.h"

#include <array>
#include <utility>

#include "velmora/apps/component_class/type_information.h"

namespace velmora::component {

using com::asGet;
using com::asMethod;
using com::asPut;
using com::Call;
using com::Variant;

namespace {

VARIANT_BOOL booleanOf(bool value) {
    return value ? VARIANT_TRUE : VARIANT_FALSE;
}

/// Writes the caller's variable when an operation has changed it.
template <typename Value>
void giveBack(Call& call, std::size_t position, Value before, Value after, const Variant& variant) {
    if (before != after) {
        call.assign(position, variant);
    }
}

}  // namespace

VmoraObject::VmoraObject(const Module& module)
    : module_(module), place_(Place::shared(module)), vmora_(place_->desk()) {}

std::span<const com::Member<VmoraObject>> VmoraObject::members() {
    using Row = com::Member<VmoraObject>;
    static constexpr std::array table{
        Row{.name = L"MyBd", .id = member::MyBd, .how = asGet, .run = &VmoraObject::getMyBd},
        Row{.name = L"MyBd", .id = member::MyBd, .how = asPut, .fewest = 1, .most = 1, .run = &VmoraObject::putMyBd},
        Row{.name = L"bExportReport", .id = member::bExportReport, .how = asGet, .run = &VmoraObject::getExportReport},
        Row{.name = L"bExportReport",
            .id = member::bExportReport,
            .how = asPut,
            .fewest = 1,
            .most = 1,
            .run = &VmoraObject::putExportReport},
        Row{.name = L"jShow", .id = member::jShow, .run = &VmoraObject::callShow},
        Row{.name = L"jShowParametros", .id = member::jShowParametros, .run = &VmoraObject::callShowParametros},
        Row{.name = L"jShowPropuesta",
            .id = member::jShowPropuesta,
            .fewest = 1,
            .most = 1,
            .run = &VmoraObject::callShowPropuesta},
        Row{.name = L"jPrintPropuesta",
            .id = member::jPrintPropuesta,
            .fewest = 2,
            .most = 2,
            .run = &VmoraObject::callPrintPropuesta},
        Row{.name = L"jShowSeguimiento", .id = member::jShowSeguimiento, .run = &VmoraObject::callShowSeguimiento},
    };
    return table;
}

void* VmoraObject::interfaceOf(REFIID id) {
    if (IsEqualIID(id, interfaceId)) {
        return static_cast<VmoraInterface*>(this);
    }
    if (IsEqualIID(id, IID_IProvideClassInfo)) {
        return static_cast<IProvideClassInfo*>(this);
    }
    if (IsEqualIID(id, IID_ISupportErrorInfo)) {
        return static_cast<ISupportErrorInfo*>(this);
    }
    return Base::interfaceOf(id);
}

// What the class tells of itself.

HRESULT VmoraObject::GetTypeInfoCount(UINT* count) {
    if (count == nullptr) {
        return E_POINTER;
    }
    *count = 1;
    return S_OK;
}

HRESULT VmoraObject::GetTypeInfo(UINT index, LCID, ITypeInfo** out) {
    if (out == nullptr) {
        return E_POINTER;
    }
    *out = nullptr;
    return index == 0 ? typeInformation(module_.handle, interfaceId, out) : DISP_E_BADINDEX;
}

HRESULT VmoraObject::GetClassInfo(ITypeInfo** out) {
    if (out == nullptr) {
        return E_POINTER;
    }
    *out = nullptr;
    return typeInformation(module_.handle, classId, out);
}

HRESULT VmoraObject::InterfaceSupportsErrorInfo(REFIID id) {
    return IsEqualIID(id, interfaceId) ? S_OK : S_FALSE;
}

// The operations.

void VmoraObject::setSession(const com::Ref<IDispatch>& session) {
    const com::LateObject given(session);
    std::shared_ptr<session::Session> called;
    if (given) {
        called = place_->surroundings().sessionOf(given);
    }
    vmora_.MyBd(std::move(called));
    session_ = given;
}

void VmoraObject::showProposal(LONG& nIdDpi) {
    std::int32_t number = nIdDpi;
    vmora_.jShowPropuesta(number);
    nIdDpi = number;
}

void VmoraObject::printProposal(LONG& nIdDpi, VARIANT_BOOL& bOrden) {
    std::int32_t number = nIdDpi;
    bool order = bOrden != VARIANT_FALSE;
    const bool before = order;
    vmora_.jPrintPropuesta(number, order);
    nIdDpi = number;
    if (order != before) {
        bOrden = booleanOf(order);
    }
}

// By name.

void VmoraObject::getMyBd(Call& call) {
    call.answer(Variant::object(session_.dispatch()));
}

void VmoraObject::putMyBd(Call& call) {
    setSession(call.object(0));
}

void VmoraObject::getExportReport(Call& call) {
    call.answer(sql::Value(vmora_.bExportReport()));
}

void VmoraObject::putExportReport(Call& call) {
    vmora_.bExportReport(call.value(0).toBool());
}

void VmoraObject::callShow(Call&) {
    vmora_.jShow();
}

void VmoraObject::callShowParametros(Call&) {
    vmora_.jShowParametros();
}

void VmoraObject::callShowPropuesta(Call& call) {
    const LONG before = call.value(0).toLong();
    LONG number = before;
    showProposal(number);
    giveBack(call, 0, before, number, Variant::longNumber(number));
}

void VmoraObject::callPrintPropuesta(Call& call) {
    const LONG before = call.value(0).toLong();
    const VARIANT_BOOL orderBefore = booleanOf(call.value(1).toBool());
    LONG number = before;
    VARIANT_BOOL order = orderBefore;
    printProposal(number, order);
    giveBack(call, 0, before, number, Variant::longNumber(number));
    giveBack(call, 1, orderBefore, order, Variant::boolean(order != VARIANT_FALSE));
}

void VmoraObject::callShowSeguimiento(Call&) {
    vmora_.jShowSeguimiento();
}

// Through the interface.

template <typename Work>
HRESULT VmoraObject::run(const Work& work) noexcept {
    const auto held = com::Ref<VmoraInterface>::sharing(this);  // the host may release its instance during the call
    return com::guarded(interfaceId, work);
}

HRESULT VmoraObject::get_MyBd(IDispatch** session) {
    if (session == nullptr) {
        return E_POINTER;
    }
    *session = com::Ref<IDispatch>(session_.dispatch()).detach();
    return S_OK;
}

HRESULT VmoraObject::put_MyBd(IDispatch* session) {
    return putref_MyBd(session);
}

HRESULT VmoraObject::putref_MyBd(IDispatch* session) {
    return run([&] { setSession(com::Ref<IDispatch>::sharing(session)); });
}

HRESULT VmoraObject::get_bExportReport(VARIANT_BOOL* value) {
    if (value == nullptr) {
        return E_POINTER;
    }
    *value = booleanOf(vmora_.bExportReport());
    return S_OK;
}

HRESULT VmoraObject::put_bExportReport(VARIANT_BOOL value) {
    vmora_.bExportReport(value != VARIANT_FALSE);
    return S_OK;
}

HRESULT VmoraObject::jShow() {
    return run([&] { vmora_.jShow(); });
}

HRESULT VmoraObject::jShowParametros() {
    return run([&] { vmora_.jShowParametros(); });
}

HRESULT VmoraObject::jShowPropuesta(LONG* nIdDpi) {
    return nIdDpi == nullptr ? E_POINTER : run([&] { showProposal(*nIdDpi); });
}

HRESULT VmoraObject::jPrintPropuesta(LONG* nIdDpi, VARIANT_BOOL* bOrden) {
    return nIdDpi == nullptr || bOrden == nullptr ? E_POINTER : run([&] { printProposal(*nIdDpi, *bOrden); });
}

HRESULT VmoraObject::jShowSeguimiento() {
    return run([&] { vmora_.jShowSeguimiento(); });
}

}  // namespace velmora::component
