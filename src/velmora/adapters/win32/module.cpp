#include "velmora/adapters/win32/module.h"

#include "velmora/adapters/win32/native_window.h"

namespace velmora::win32 {

namespace {

constexpr int manifestNumber = 2;

/// The context of the module's manifest; INVALID_HANDLE_VALUE without one.
HANDLE manifestContext() {
    static const HANDLE context = [] {
        ACTCTXW request{};
        request.cbSize = sizeof request;
        request.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
        request.hModule = ownModule();
        request.lpResourceName = MAKEINTRESOURCEW(manifestNumber);
        return CreateActCtxW(&request);
    }();
    return context;
}

/// A function of the system's window library that older systems lack.
template <typename Function>
Function* userFunction(const char* name) {
    const HMODULE library = GetModuleHandleW(L"user32.dll");
    // The standard knows no cast between pointers to functions that says what it means.
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

void registerControls() {
    static const bool once = [] {
        INITCOMMONCONTROLSEX wanted{};
        wanted.dwSize = sizeof wanted;
        wanted.dwICC = ICC_STANDARD_CLASSES | ICC_LISTVIEW_CLASSES | ICC_PROGRESS_CLASS | ICC_BAR_CLASSES;
        return InitCommonControlsEx(&wanted) != FALSE;
    }();
    static_cast<void>(once);
}

}  // namespace

HINSTANCE ownModule() {
    static const HINSTANCE module = [] {
        HMODULE found = nullptr;
        GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                           reinterpret_cast<const wchar_t*>(&ownModule), &found);
        return found;
    }();
    return module;
}

const wchar_t* windowClass() {
    static const wchar_t* const name = [] {
        WNDCLASSEXW shape{};
        shape.cbSize = sizeof shape;
        shape.style = CS_DBLCLKS;
        shape.lpfnWndProc = &NativeWindow::procedure;
        shape.hInstance = ownModule();
        shape.hCursor = LoadCursorW(nullptr, IDC_ARROW);
        shape.lpszClassName = L"VelmoraWindow";
        // A name registered by an earlier load of this module would lead to code that is gone.
        UnregisterClassW(shape.lpszClassName, shape.hInstance);
        RegisterClassExW(&shape);
        return shape.lpszClassName;
    }();
    return name;
}

CreationScope::CreationScope() {
    if (manifestContext() != INVALID_HANDLE_VALUE) {
        ActivateActCtx(manifestContext(), &cookie_);
    }
    registerControls();
    static const auto setAwareness = userFunction<void * WINAPI(void*)>("SetThreadDpiAwarenessContext");
    if (setAwareness != nullptr) {
        awareness_ = setAwareness(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2);
    }
}

CreationScope::~CreationScope() {
    static const auto setAwareness = userFunction<void * WINAPI(void*)>("SetThreadDpiAwarenessContext");
    if (setAwareness != nullptr && awareness_ != nullptr) {
        setAwareness(awareness_);
    }
    if (cookie_ != 0) {
        DeactivateActCtx(0, cookie_);
    }
}

int dpiOf(HWND window) {
    static const auto ofWindow = userFunction<UINT WINAPI(HWND)>("GetDpiForWindow");
    if (ofWindow != nullptr && window != nullptr) {
        const UINT dpi = ofWindow(window);
        if (dpi != 0) {
            return static_cast<int>(dpi);
        }
    }
    HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return dpi;
}

}  // namespace velmora::win32
