#include "velmora/apps/icon/icon_svg.h"

#include <array>
#include <charconv>
#include <string_view>

#include "velmora/apps/icon/icon_shapes.h"

namespace velmora::icon {

namespace {

std::string number(double value) {
    constexpr int decimals = 2;
    std::array<char, 32> digits{};
    const auto [end, error] =
        std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed, decimals);
    return {digits.data(), end};
}

std::string colour(Rgb value) {
    constexpr std::string_view hex = "0123456789abcdef";
    std::string text = "#";
    for (int shift = 20; shift >= 0; shift -= 4) {
        text += hex[(value >> shift) & 0xFU];
    }
    return text;
}

std::string outline(const IconShape& shape) {
    std::string text;
    for (const toolkit::PixelPoint& point : shape.points) {
        text += (text.empty() ? "M" : "L") + number(point.x) + " " + number(point.y);
    }
    return shape.isClosed ? text + "Z" : text;
}

std::string element(const IconShape& shape) {
    return "  <path d=\"" + outline(shape) + "\" fill=\"" + (shape.fill ? colour(*shape.fill) : "none") +
           "\" stroke=\"" + colour(shape.stroke) + "\" stroke-width=\"" + number(shape.strokeWidth) +
           "\" stroke-linejoin=\"round\"/>\n";
}

}  // namespace

std::string iconSvg() {
    const std::string length = number(side);
    std::string text = R"(<?xml version="1.0" encoding="UTF-8"?>)"
                       "\n<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" +
                       length + "\" height=\"" + length + "\" viewBox=\"0 0 " + length + " " + length + "\">\n";
    for (const IconShape& shape : iconShapes()) {
        text += element(shape);
    }
    return text + "</svg>\n";
}

}  // namespace velmora::icon
