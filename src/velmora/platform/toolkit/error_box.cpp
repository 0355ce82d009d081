#include "velmora/platform/toolkit/error_box.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <string>
#include <utility>

#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/platform/toolkit/message_choices.h"

namespace velmora::toolkit {

namespace {

std::string hexadecimal(std::uint32_t bits) {
    std::array<char, 8> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), bits, 16).ptr;
    return runtime::UCase(std::string_view(digits.data(), static_cast<std::size_t>(end - digits.data())));
}

std::string numberText(long number) {
    std::string decimal = runtime::CStr(std::int64_t{number});
    if (number >= 0) {
        return decimal;
    }
    return decimal + " (" + hexadecimal(static_cast<std::uint32_t>(static_cast<std::int32_t>(number))) + ")";
}

}  // namespace

screen::MessageBox errorBox(std::exception_ptr error) {
    screen::MessageBox box{.text = {}, .icon = screen::Icon::critical, .title = std::string(programTitle)};
    try {
        std::rethrow_exception(std::move(error));
    } catch (const runtime::RuntimeError& e) {
        box.text = "Error " + numberText(e.number()) + "\n\n" + e.description();
    } catch (const std::exception& e) {
        box.text = std::string("Error interno del programa\n\n") + e.what();
    } catch (...) {
        box.text = "Error interno del programa";
    }
    return box;
}

}  // namespace velmora::toolkit
