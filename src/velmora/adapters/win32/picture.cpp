#include "velmora/adapters/win32/picture.h"

#include "velmora/adapters/win32/form_window.h"
#include "velmora/adapters/win32/gdi_plus.h"
#include "velmora/adapters/win32/message_loop.h"
#include "velmora/adapters/win32/text.h"
#include "velmora/adapters/win32/window_places.h"

namespace velmora::win32 {

namespace {
/// The system's encoder for PNG files.
constexpr CLSID pngEncoder{0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};
}  // namespace

bool writePicture(HWND window, const std::string& path) {
    const Box area = clientBox(window);
    HDC source = GetDC(window);
    HDC memory = CreateCompatibleDC(source);
    HBITMAP bitmap = CreateCompatibleBitmap(source, area.width, area.height);
    const HGDIOBJ before = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, area.width, area.height, source, 0, 0, SRCCOPY);
    SelectObject(memory, before);
    bool written = false;
    {
        Gdiplus::Bitmap image(bitmap, nullptr);
        written = image.Save(toWide(path).c_str(), &pngEncoder, nullptr) == Gdiplus::Ok;
    }
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(window, source);
    return written;
}

bool picture(Win32Screen& screen, screen::Form& form, const std::string& path, int dpi, int width, int height) {
    FormWindow window(screen, form, nullptr, dpi);
    window.settle();
    const SIZE size{window.theme().scaled(width), window.theme().scaled(height)};
    placeOverOwner(window.handle(), size.cx, size.cy);
    ShowWindow(window.handle(), SW_SHOW);
    // Filling lists and stretching columns is done once the messages under way have been handled.
    for (int i = 0; i < 3; ++i) {
        runPending(Input::heldBack);
        window.settle();
        RedrawWindow(window.handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    }
    return writePicture(window.handle(), path);
}

}  // namespace velmora::win32
