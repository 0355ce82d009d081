#pragma once
// An instance of the public class as a host holds it.

#include <memory>

#include "velmora/adapters/com/automation_object.h"
#include "velmora/adapters/com/late_object.h"
#include "velmora/apps/component_class/place.h"
#include "velmora/apps/component_class/vmora_interface.h"
#include "velmora/shell/vmora.h"

namespace velmora::component {

/// The seven members, by name or through the interface's methods. An error of an operation is the failure of the call,
/// with number, description and source: in the EXCEPINFO of a call by name, as the thread's error object otherwise.
/// An operation that shows a form returns when the form is closed.
class VmoraObject final : public com::AutomationObject<VmoraObject, VmoraInterface>,
                          public IProvideClassInfo,
                          public ISupportErrorInfo {
  public:
    using Base = com::AutomationObject<VmoraObject, VmoraInterface>;

    explicit VmoraObject(const Module& module);
    static std::span<const com::Member<VmoraObject>> members();

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override { return Base::QueryInterface(id, out); }
    ULONG STDMETHODCALLTYPE AddRef() override { return Base::AddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return Base::Release(); }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** out) override;
    HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** out) override;
    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID id) override;

    HRESULT STDMETHODCALLTYPE get_MyBd(IDispatch** session) override;
    HRESULT STDMETHODCALLTYPE put_MyBd(IDispatch* session) override;
    HRESULT STDMETHODCALLTYPE putref_MyBd(IDispatch* session) override;
    HRESULT STDMETHODCALLTYPE get_bExportReport(VARIANT_BOOL* value) override;
    HRESULT STDMETHODCALLTYPE put_bExportReport(VARIANT_BOOL value) override;
    HRESULT STDMETHODCALLTYPE jShow() override;
    HRESULT STDMETHODCALLTYPE jShowParametros() override;
    HRESULT STDMETHODCALLTYPE jShowPropuesta(LONG* nIdDpi) override;
    HRESULT STDMETHODCALLTYPE jPrintPropuesta(LONG* nIdDpi, VARIANT_BOOL* bOrden) override;
    HRESULT STDMETHODCALLTYPE jShowSeguimiento() override;

  protected:
    void* interfaceOf(REFIID id) override;

  private:
    void setSession(const com::Ref<IDispatch>& session);
    void showProposal(LONG& nIdDpi);
    void printProposal(LONG& nIdDpi, VARIANT_BOOL& bOrden);
    template <typename Work>
    HRESULT run(const Work& work) noexcept;

    void getMyBd(com::Call& call);
    void putMyBd(com::Call& call);
    void getExportReport(com::Call& call);
    void putExportReport(com::Call& call);
    void callShow(com::Call& call);
    void callShowParametros(com::Call& call);
    void callShowPropuesta(com::Call& call);
    void callPrintPropuesta(com::Call& call);
    void callShowSeguimiento(com::Call& call);

    Module module_;
    std::shared_ptr<Place> place_;
    shell::VMORA vmora_;
    com::LateObject session_;
};

}  // namespace velmora::component
