#pragma once
// The public class in COM: its identifiers and the methods of its interface. velmora.idl states the same for the type
// library.

#include "velmora/adapters/com/com_headers.h"

namespace velmora::component {

inline constexpr wchar_t progId[] = L"VELMORA.VMORA";
inline constexpr wchar_t interfaceName[] = L"_VMORA";
inline constexpr wchar_t libraryName[] = L"VELMORA";
inline constexpr wchar_t libraryVersion[] = L"1.0";

inline constexpr CLSID classId{0x913f6b81, 0x1338, 0x4d7a, {0xbb, 0xad, 0x90, 0x76, 0xfc, 0x6a, 0x20, 0x73}};
inline constexpr IID interfaceId{0x7f56f9dc, 0x2477, 0x4ac7, {0x84, 0x53, 0x76, 0x3a, 0xb1, 0xce, 0xc2, 0x79}};
inline constexpr GUID libraryId{0xf3847173, 0x3256, 0x43f8, {0x98, 0x97, 0x9b, 0x5c, 0x86, 0x63, 0x89, 0xe2}};

/// Numbers of the members.
namespace member {
inline constexpr DISPID MyBd = 1;
inline constexpr DISPID bExportReport = 2;
inline constexpr DISPID jShow = 3;
inline constexpr DISPID jShowParametros = 4;
inline constexpr DISPID jShowPropuesta = 5;
inline constexpr DISPID jPrintPropuesta = 6;
inline constexpr DISPID jShowSeguimiento = 7;
}  // namespace member

/// The interface _VMORA. The order of the methods is that of the type library.
struct VmoraInterface : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_MyBd(IDispatch** session) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_MyBd(IDispatch* session) = 0;
    virtual HRESULT STDMETHODCALLTYPE putref_MyBd(IDispatch* session) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_bExportReport(VARIANT_BOOL* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_bExportReport(VARIANT_BOOL value) = 0;
    virtual HRESULT STDMETHODCALLTYPE jShow() = 0;
    virtual HRESULT STDMETHODCALLTYPE jShowParametros() = 0;
    virtual HRESULT STDMETHODCALLTYPE jShowPropuesta(LONG* nIdDpi) = 0;
    virtual HRESULT STDMETHODCALLTYPE jPrintPropuesta(LONG* nIdDpi, VARIANT_BOOL* bOrden) = 0;
    virtual HRESULT STDMETHODCALLTYPE jShowSeguimiento() = 0;
};

}  // namespace velmora::component
