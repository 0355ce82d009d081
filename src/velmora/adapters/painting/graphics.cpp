#include "velmora/adapters/painting/graphics.h"

#include <QGuiApplication>
#include <algorithm>
#include <array>

namespace velmora::painting {

Graphics::Graphics() = default;

Graphics::~Graphics() = default;

void Graphics::require() {
    if (QCoreApplication::instance() != nullptr) {
        return;
    }
    // QApplication keeps references to its arguments and removes those that it has processed.
    static char name[] = "velmora";
    static char option[] = "-platform";
    static char platform[] = "offscreen";
    static int count = 0;
    static char* arguments[4];
    std::ranges::copy(std::array<char*, 4>{name, option, platform, nullptr}, arguments);
    count = 3;
    own_ = std::make_unique<QGuiApplication>(count, arguments);
}

}  // namespace velmora::painting
