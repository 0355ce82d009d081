// Shows the sample form (no argument) or writes its picture to the given path, for visual checks; a second argument is
// the scale in dots per inch.

#include <charconv>
#include <cstring>

#include "velmora/adapters/win32/picture.h"
#include "velmora/adapters/win32/win32_screen.h"

#include "adapters/qt/sample_form.h"

int main(int argc, char** argv) {
    velmora::win32::Win32Screen screen(GetModuleHandleW(nullptr));
    velmora::testing::SampleForm form;
    if (argc > 1) {
        int dpi = USER_DEFAULT_SCREEN_DPI;
        if (argc > 2) {
            std::from_chars(argv[2], argv[2] + std::strlen(argv[2]), dpi);
        }
        form.moveFocus(form.measure(2));
        return velmora::win32::picture(screen, form, argv[1], dpi) ? 0 : 1;
    }
    screen.showModal(form);
    return 0;
}
