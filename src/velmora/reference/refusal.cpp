#include "velmora/reference/refusal.h"

namespace velmora::reference {

void refuse(screen::Screen& screen, const std::string& words, const char* title) {
    screen.show({.text = words, .icon = screen::Icon::critical, .title = title});
}

}  // namespace velmora::reference
