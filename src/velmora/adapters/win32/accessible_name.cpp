#include "velmora/adapters/win32/accessible_name.h"

#include <initguid.h>
#include <objbase.h>
#include <oleacc.h>

namespace velmora::win32 {

namespace {

// The service that annotates windows, the property "name", and the interface; not in every import library.
constexpr GUID annotationService{0xb5f8350b, 0x0548, 0x48b1, {0xa6, 0xee, 0x88, 0xbd, 0x00, 0xb4, 0xa5, 0xe7}};
constexpr GUID annotationInterface{0x6e26e776, 0x04f0, 0x495d, {0x80, 0xe4, 0x33, 0x30, 0x35, 0x2e, 0x31, 0x69}};
constexpr GUID nameProperty{0x608d3df8, 0x8128, 0x4aa7, {0xa4, 0x28, 0xf5, 0x5e, 0x49, 0x26, 0x72, 0x91}};

}  // namespace

void nameForAssistance(HWND window, const std::wstring& name) {
    IAccPropServices* service = nullptr;
    if (FAILED(CoCreateInstance(annotationService, nullptr, CLSCTX_INPROC_SERVER, annotationInterface,
                                reinterpret_cast<void**>(&service))) ||
        service == nullptr) {
        return;
    }
    service->SetHwndPropStr(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, nameProperty, name.c_str());
    service->Release();
}

}  // namespace velmora::win32
