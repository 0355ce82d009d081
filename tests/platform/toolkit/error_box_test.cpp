#include "velmora/platform/toolkit/error_box.h"

#include <stdexcept>

#include <gtest/gtest.h>

#include "velmora/platform/runtime/errors.h"

namespace velmora::toolkit {
namespace {

std::string textFor(std::exception_ptr error) {
    const screen::MessageBox box = errorBox(error);
    EXPECT_EQ(box.icon, screen::Icon::critical);
    EXPECT_EQ(box.buttons, screen::Buttons::ok);
    EXPECT_EQ(box.title, "VELMORA");
    return box.text;
}

TEST(ErrorBoxTest, ARunTimeErrorShowsItsNumberAndDescription) {
    EXPECT_EQ(textFor(std::make_exception_ptr(runtime::RuntimeError(13, "No coinciden los tipos"))),
              "Error 13\n\nNo coinciden los tipos");
}

TEST(ErrorBoxTest, AProvidersNumberIsShownInBothForms) {
    EXPECT_EQ(
        textFor(std::make_exception_ptr(runtime::RuntimeError(static_cast<int>(0x80040E37U), "No existe la tabla"))),
        "Error -2147217865 (80040E37)\n\nNo existe la tabla");
}

TEST(ErrorBoxTest, AnyOtherExceptionIsAnInternalErrorWithItsText) {
    EXPECT_EQ(textFor(std::make_exception_ptr(std::out_of_range("beyond the list"))),
              "Error interno del programa\n\nbeyond the list");
    EXPECT_EQ(textFor(std::make_exception_ptr(7)), "Error interno del programa");
}

}  // namespace
}  // namespace velmora::toolkit
