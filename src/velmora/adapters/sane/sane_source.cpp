#include "velmora/adapters/sane/sane_source.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <utility>

#include <sane/sane.h>
#include <sane/saneopts.h>

#include "velmora/platform/runtime/errors.h"

namespace velmora::scanner {

namespace {

constexpr long deviceError = 57;
// Chosen C-217: pages are scanned in colour at 200 dots per inch: text and stamps are legible, and a page is smaller
// than a megabyte.
constexpr double wantedResolution = 200;
constexpr std::size_t chunk = std::size_t{64} * 1024;
constexpr std::size_t mostSamples = std::size_t{1} << 30;

struct StatusText {
    SANE_Status status;
    const char* text;
};

constexpr std::array statusTexts{
    StatusText{SANE_STATUS_UNSUPPORTED, "El escáner no admite la operación."},
    StatusText{SANE_STATUS_DEVICE_BUSY, "El escáner está ocupado. Inténtelo más tarde."},
    StatusText{SANE_STATUS_INVAL, "El escáner no existe o no admite lo que se le pide."},
    StatusText{SANE_STATUS_JAMMED, "El papel está atascado en el escáner."},
    StatusText{SANE_STATUS_NO_DOCS, "No hay papel en el escáner."},
    StatusText{SANE_STATUS_COVER_OPEN, "La tapa del escáner está abierta."},
    StatusText{SANE_STATUS_IO_ERROR, "Error de comunicación con el escáner."},
    StatusText{SANE_STATUS_NO_MEM, "No hay memoria suficiente para escanear."},
    StatusText{SANE_STATUS_ACCESS_DENIED, "No hay permiso para usar el escáner."},
};

[[noreturn]] void fail(const std::string& text) {
    throw runtime::RuntimeError(deviceError, text);
}

void check(SANE_Status status) {
    if (status == SANE_STATUS_GOOD) {
        return;
    }
    const auto* known = std::ranges::find(statusTexts, status, &StatusText::status);
    fail(known != statusTexts.end() ? known->text : "Error del escáner.");
}

/// Initialises the library for the duration of its lifetime. Single-threaded.
class Library {
  public:
    Library() {
        SANE_Int version = 0;
        check(sane_init(&version, nullptr));
    }
    ~Library() { sane_exit(); }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
};

/// An open device and its options.
class Scanner {
  public:
    explicit Scanner(const std::string& name) { check(sane_open(name.c_str(), &handle_)); }
    ~Scanner() {
        sane_cancel(handle_);
        sane_close(handle_);
    }
    Scanner(const Scanner&) = delete;
    Scanner& operator=(const Scanner&) = delete;

    SANE_Handle handle() const { return handle_; }

    /// Selects a text if the option offers it.
    void prefer(std::string_view name, std::string_view value) const;
    /// Sets a number as closely as the option allows and returns the resulting value; nullopt without such an option.
    std::optional<double> setNear(std::string_view name, double value) const;

  private:
    struct Option {
        SANE_Int index;
        const SANE_Option_Descriptor* form;
    };
    std::optional<Option> find(std::string_view name) const;

    SANE_Handle handle_ = nullptr;
};

std::optional<Scanner::Option> Scanner::find(std::string_view name) const {
    for (SANE_Int i = 1;; ++i) {
        const SANE_Option_Descriptor* form = sane_get_option_descriptor(handle_, i);
        if (form == nullptr) {
            return std::nullopt;
        }
        if (form->name != nullptr && name == form->name && SANE_OPTION_IS_ACTIVE(form->cap)) {
            return Option{i, form};
        }
    }
}

void Scanner::prefer(std::string_view name, std::string_view value) const {
    const auto option = find(name);
    if (!option || option->form->type != SANE_TYPE_STRING || !SANE_OPTION_IS_SETTABLE(option->form->cap) ||
        option->form->constraint_type != SANE_CONSTRAINT_STRING_LIST) {
        return;
    }
    for (const SANE_String_Const* offered = option->form->constraint.string_list; *offered != nullptr; ++offered) {
        if (value == *offered) {
            std::vector<char> text(std::max(value.size() + 1, static_cast<std::size_t>(option->form->size)));
            std::ranges::copy(value, text.begin());
            SANE_Int reloaded = 0;
            sane_control_option(handle_, option->index, SANE_ACTION_SET_VALUE, text.data(), &reloaded);
            return;
        }
    }
}

double fromWord(SANE_Word word, SANE_Value_Type type) {
    return type == SANE_TYPE_FIXED ? SANE_UNFIX(word) : static_cast<double>(word);
}

SANE_Word nearest(const SANE_Option_Descriptor& form, SANE_Word wanted) {
    if (form.constraint_type == SANE_CONSTRAINT_RANGE) {
        const SANE_Range& range = *form.constraint.range;
        const SANE_Word inside = std::clamp(wanted, range.min, range.max);
        return range.quant > 0 ? range.min + (inside - range.min) / range.quant * range.quant : inside;
    }
    if (form.constraint_type == SANE_CONSTRAINT_WORD_LIST) {
        // The first word is the number of the others.
        const SANE_Word* list = form.constraint.word_list;
        const SANE_Word* best = std::min_element(list + 1, list + 1 + list[0], [wanted](SANE_Word a, SANE_Word b) {
            return std::abs(a - wanted) < std::abs(b - wanted);
        });
        return list[0] > 0 ? *best : wanted;
    }
    return wanted;
}

std::optional<double> Scanner::setNear(std::string_view name, double value) const {
    const auto option = find(name);
    if (!option || (option->form->type != SANE_TYPE_INT && option->form->type != SANE_TYPE_FIXED) ||
        option->form->size != static_cast<SANE_Int>(sizeof(SANE_Word))) {
        return std::nullopt;
    }
    const SANE_Value_Type type = option->form->type;
    SANE_Word word = nearest(*option->form, type == SANE_TYPE_FIXED ? SANE_FIX(value) : static_cast<SANE_Word>(value));
    if (SANE_OPTION_IS_SETTABLE(option->form->cap)) {
        SANE_Int reloaded = 0;
        sane_control_option(handle_, option->index, SANE_ACTION_SET_VALUE, &word, &reloaded);
    }
    check(sane_control_option(handle_, option->index, SANE_ACTION_GET_VALUE, &word, nullptr));
    return fromWord(word, type);
}

/// Whether a page has been read, or the user cancelled at the device.
enum class Outcome { page, cancelled };

/// Reads the bytes of one frame.
Outcome readFrame(SANE_Handle handle, const SANE_Parameters& form, std::pair<int, int> frame, Watch& watch,
                  std::vector<SANE_Byte>& bytes) {
    const auto expected =
        form.lines > 0 ? static_cast<std::size_t>(form.lines) * static_cast<std::size_t>(form.bytes_per_line) : 0;
    std::vector<SANE_Byte> buffer(chunk);
    for (;;) {
        if (watch.cancelled()) {
            return Outcome::cancelled;
        }
        SANE_Int count = 0;
        const SANE_Status status = sane_read(handle, buffer.data(), static_cast<SANE_Int>(buffer.size()), &count);
        if (status == SANE_STATUS_EOF) {
            return Outcome::page;
        }
        if (status == SANE_STATUS_CANCELLED) {
            return Outcome::cancelled;
        }
        check(status);
        bytes.insert(bytes.end(), buffer.begin(), buffer.begin() + count);
        if (bytes.size() > mostSamples) {
            fail("La página es demasiado grande.");
        }
        if (expected > 0) {
            const double part = static_cast<double>(bytes.size()) / static_cast<double>(expected);
            watch.advance((frame.first + std::min(part, 1.0)) / frame.second);
        } else {
            watch.advance(std::nullopt);
        }
    }
}

/// One sample as 8 bits. In line art a set bit is black, as the interface defines.
std::uint8_t sampleAt(const SANE_Byte* line, int index, int depth, bool grey) {
    if (depth == 1) {
        const bool set = (line[index / 8] >> (7 - index % 8) & 1) != 0;
        return set == grey ? 0 : 255;
    }
    if (depth == 16) {
        std::uint16_t sample = 0;
        std::memcpy(&sample, line + 2 * static_cast<std::ptrdiff_t>(index), sizeof sample);
        return static_cast<std::uint8_t>(sample >> 8);
    }
    return line[index];
}

/// Copies a frame's samples to the page: all channels, or that of its colour.
void putFrame(const SANE_Parameters& form, const std::vector<SANE_Byte>& bytes, Image& page) {
    const int height =
        form.bytes_per_line > 0 ? static_cast<int>(bytes.size() / static_cast<std::size_t>(form.bytes_per_line)) : 0;
    const bool colourFrame =
        form.format == SANE_FRAME_RED || form.format == SANE_FRAME_GREEN || form.format == SANE_FRAME_BLUE;
    const int inFrame = form.format == SANE_FRAME_RGB ? 3 : 1;
    page.channels = form.format == SANE_FRAME_GRAY ? 1 : 3;
    page.width = form.pixels_per_line;
    page.height = page.samples.empty() ? height : std::min(page.height, height);
    const std::size_t rowSize = static_cast<std::size_t>(page.width) * static_cast<std::size_t>(page.channels);
    page.samples.resize(rowSize * static_cast<std::size_t>(page.height));
    const int channel = colourFrame ? static_cast<int>(form.format) - static_cast<int>(SANE_FRAME_RED) : 0;
    const int step = colourFrame ? 3 : 1;
    for (int y = 0; y < page.height; ++y) {
        const SANE_Byte* line =
            bytes.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(form.bytes_per_line);
        std::uint8_t* row = page.samples.data() + static_cast<std::size_t>(y) * rowSize;
        for (int i = 0; i < page.width * inFrame; ++i) {
            row[i * step + channel] = sampleAt(line, i, form.depth, form.format == SANE_FRAME_GRAY);
        }
    }
}

void checkForm(const SANE_Parameters& form) {
    const bool known = form.format == SANE_FRAME_GRAY || form.format == SANE_FRAME_RGB ||
                       form.format == SANE_FRAME_RED || form.format == SANE_FRAME_GREEN ||
                       form.format == SANE_FRAME_BLUE;
    const int samples = form.format == SANE_FRAME_RGB ? 3 : 1;
    const bool fits = form.pixels_per_line > 0 && form.bytes_per_line > 0 &&
                      static_cast<std::int64_t>(form.pixels_per_line) * samples * form.depth <=
                          static_cast<std::int64_t>(form.bytes_per_line) * 8;
    if (!known || !fits || (form.depth != 1 && form.depth != 8 && form.depth != 16)) {
        fail("El escáner entrega la imagen en un formato desconocido.");
    }
}

void setResolution(const Scanner& scanner, Image& page) {
    const auto both = scanner.setNear(SANE_NAME_SCAN_RESOLUTION, wantedResolution);
    const auto across = scanner.setNear(SANE_NAME_SCAN_X_RESOLUTION, wantedResolution);
    const auto down = scanner.setNear(SANE_NAME_SCAN_Y_RESOLUTION, wantedResolution);
    page.dotsPerInchAcross = across.value_or(both.value_or(0));
    page.dotsPerInchDown = down.value_or(both.value_or(page.dotsPerInchAcross));
    if (page.dotsPerInchAcross <= 0 || page.dotsPerInchDown <= 0) {
        fail("El escáner no dice su resolución.");
    }
}

}  // namespace

std::vector<Device> SaneSource::devices(Watch& watch) {
    const Library library;
    watch.advance(std::nullopt);
    const SANE_Device** list = nullptr;
    check(sane_get_devices(&list, SANE_FALSE));
    std::vector<Device> devices;
    for (; *list != nullptr; ++list) {
        const SANE_Device& device = **list;
        devices.push_back({device.name, std::string(device.vendor) + ' ' + device.model + " (" + device.name + ')'});
    }
    return devices;
}

std::optional<Image> SaneSource::scan(const std::string& device, Watch& watch) {
    const Library library;
    const Scanner scanner(device);
    watch.advance(std::nullopt);
    scanner.prefer(SANE_NAME_SCAN_MODE, SANE_VALUE_SCAN_MODE_COLOR);
    Image page;
    setResolution(scanner, page);
    for (int frame = 0;; ++frame) {
        check(sane_start(scanner.handle()));
        SANE_Parameters form{};
        check(sane_get_parameters(scanner.handle(), &form));
        checkForm(form);
        const bool threePasses = form.format != SANE_FRAME_GRAY && form.format != SANE_FRAME_RGB;
        std::vector<SANE_Byte> bytes;
        if (readFrame(scanner.handle(), form, {frame, threePasses ? 3 : 1}, watch, bytes) == Outcome::cancelled) {
            return std::nullopt;
        }
        putFrame(form, bytes, page);
        if (form.last_frame != SANE_FALSE) {
            break;
        }
    }
    if (page.width <= 0 || page.height <= 0) {
        fail("El escáner no ha entregado ninguna imagen.");
    }
    return page;
}

}  // namespace velmora::scanner
