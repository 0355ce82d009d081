#include "win32_hand.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "velmora/adapters/win32/grid_view.h"
#include "velmora/adapters/win32/message_loop.h"
#include "velmora/adapters/win32/module.h"
#include "velmora/adapters/win32/text.h"

namespace velmora::testing {

namespace {

constexpr UINT lookEvery = 5;     // ms
constexpr DWORD patience = 1000;  // ms

Win32Hand* theHand = nullptr;

INPUT keyInput(WORD virtualKey, WORD unit, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = virtualKey;
    input.ki.wScan = unit;
    input.ki.dwFlags = flags;
    return input;
}

INPUT mouseInput(DWORD flags) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    return input;
}

void send(std::vector<INPUT> inputs) {
    if (SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT)) != inputs.size()) {
        throw std::logic_error("the system refused the input");
    }
}

struct Search {
    std::wstring className;
    std::vector<HWND> found;
};

std::wstring classOf(HWND window) {
    wchar_t name[64] = {};
    GetClassNameW(window, name, 64);
    return name;
}

BOOL CALLBACK addChild(HWND window, LPARAM value) {
    auto& search = *reinterpret_cast<Search*>(value);
    if (lstrcmpiW(classOf(window).c_str(), search.className.c_str()) == 0) {
        search.found.push_back(window);
    }
    return TRUE;
}

BOOL CALLBACK addBox(HWND window, LPARAM value) {
    auto& boxes = *reinterpret_cast<std::vector<HWND>*>(value);
    const std::wstring name = classOf(window);
    if ((name == win32::windowClass() || name == L"#32770") && IsWindowVisible(window) && IsWindowEnabled(window)) {
        boxes.push_back(window);
    }
    return TRUE;
}

}  // namespace

void doWithoutWindowManager() {
    if (GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr) {
        RegSetKeyValueW(HKEY_CURRENT_USER, L"Software\\Wine\\X11 Driver", L"Managed", REG_SZ, L"N",
                        2 * sizeof(wchar_t));
    }
}

namespace {
[[maybe_unused]] const bool toldAtStart = [] {
    doWithoutWindowManager();
    return true;
}();
}  // namespace

Win32Hand::Win32Hand() {
    screen_ = std::make_unique<win32::Win32Screen>(GetModuleHandleW(nullptr));
    // Nothing under it is to be chosen by a mouse that rests there.
    SetCursorPos(0, 0);
    theHand = this;
    timer_ = SetTimer(nullptr, 0, lookEvery, &Win32Hand::tick);
}

Win32Hand::~Win32Hand() {
    KillTimer(nullptr, timer_);
    theHand = nullptr;
}

void CALLBACK Win32Hand::tick(HWND, UINT, UINT_PTR, DWORD) {
    if (theHand != nullptr) {
        try {
            theHand->lookAround();
        } catch (...) {
            win32::keepFault(std::current_exception());
        }
    }
}

void Win32Hand::lookAround() {
    if (part_ && screen_->top() != nullptr && IsWindowVisible(screen_->top()->handle())) {
        std::exchange(part_, nullptr)();
        return;
    }
    if (looking_) {
        return;
    }
    std::vector<HWND> windows;
    EnumThreadWindows(GetCurrentThreadId(), &addBox, reinterpret_cast<LPARAM>(&windows));
    for (const HWND window : windows) {
        const bool isForm = screen_->top() != nullptr && screen_->top()->handle() == window;
        if (isForm || std::ranges::find(seen_, window) != seen_.end()) {
            continue;
        }
        looking_ = true;
        if (!answers_.empty()) {
            seen_.push_back(window);
            const auto answer = answers_.front();
            answers_.erase(answers_.begin());
            looking_ = false;
            atBox_ = true;
            answer(window);
            atBox_ = false;
        } else if (otherBox_) {
            seen_.push_back(window);
            looking_ = false;
            atBox_ = true;
            otherBox_(window);
            atBox_ = false;
        }
        looking_ = false;
        return;
    }
    std::erase_if(seen_, [](HWND window) { return !IsWindow(window) || !IsWindowVisible(window); });
}

bool Win32Hand::show(screen::Form& form, const std::function<void()>& user) {
    bool played = false;
    part_ = [&] {
        pump();
        user();
        played = true;
        form.unload();
    };
    screen_->showModal(form);
    part_ = nullptr;
    return played;
}

void Win32Hand::whenBoxOpens(const std::function<void(HWND)>& answer) {
    answers_.push_back(answer);
}

win32::ControlView& Win32Hand::viewOf(const screen::Control& control) const {
    win32::ControlView* view = screen_->top()->viewOf(control);
    if (view == nullptr) {
        throw std::logic_error("no view of " + control.fullName());
    }
    return *view;
}

HWND Win32Hand::windowOf(const screen::Control& control) const {
    const std::vector<HWND> windows = viewOf(control).windows();
    return windows.empty() ? nullptr : windows.front();
}

// A box handles its keys in its own loop, once the hand has let go.
void Win32Hand::pump() {
    if (atBox_) {
        return;
    }
    win32::runPending(win32::Input::dispatched, [this](const MSG& message) {
        return screen_->top() != nullptr && screen_->top()->filter(message);
    });
}

bool Win32Hand::pumpUntil(const std::function<bool()>& condition) {
    const ULONGLONG end = GetTickCount64() + patience;
    while (!condition()) {
        if (GetTickCount64() > end) {
            return false;
        }
        MsgWaitForMultipleObjects(0, nullptr, FALSE, lookEvery, QS_ALLINPUT);
        pump();
    }
    return true;
}

void Win32Hand::press(WORD virtualKey, std::optional<WORD> modifier) {
    std::vector<INPUT> inputs;
    if (modifier) {
        inputs.push_back(keyInput(*modifier, 0, 0));
    }
    inputs.push_back(keyInput(virtualKey, 0, 0));
    inputs.push_back(keyInput(virtualKey, 0, KEYEVENTF_KEYUP));
    if (modifier) {
        inputs.push_back(keyInput(*modifier, 0, KEYEVENTF_KEYUP));
    }
    send(inputs);
    pump();
}

void Win32Hand::type(std::u32string_view characters) {
    for (const char32_t character : characters) {
        if (character == U' ') {
            press(VK_SPACE);
            continue;
        }
        for (const wchar_t unit : win32::toWide(character)) {
            send({keyInput(0, unit, KEYEVENTF_UNICODE), keyInput(0, unit, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP)});
        }
        pump();
    }
}

void Win32Hand::clickAt(HWND window, POINT inside, int times) {
    ClientToScreen(window, &inside);
    SetCursorPos(inside.x, inside.y);
    pump();
    for (int i = 0; i < times; ++i) {
        send({mouseInput(MOUSEEVENTF_LEFTDOWN), mouseInput(MOUSEEVENTF_LEFTUP)});
    }
    pump();
}

void Win32Hand::click(const screen::Control& control) {
    const HWND window = windowOf(control);
    const win32::Box area = win32::clientBox(window);
    // The caption of a check box is not where its middle is when it is wider than its text.
    const bool check = dynamic_cast<const screen::CheckBox*>(&control) != nullptr;
    clickAt(window, {check ? 8 : area.width / 2, area.height / 2});
}

void Win32Hand::doubleClick(const screen::Control& control) {
    const HWND window = windowOf(control);
    const win32::Box area = win32::clientBox(window);
    clickAt(window, {area.width / 2, area.height / 2}, 2);
}

void Win32Hand::clickCell(const screen::DataGrid& grid, int row, int column) {
    auto& view = dynamic_cast<win32::GridView&>(viewOf(grid));
    const win32::Box place = view.table().placeOf({.row = row, .column = column});
    clickAt(view.table().handle(), {place.left + place.width / 2, place.top + place.height / 2});
}

std::string textOfBox(HWND box) {
    const std::vector<HWND> texts = childrenOf(box, L"STATIC");
    std::string text = texts.empty() ? std::string() : win32::fromWide(win32::textOf(texts.front()));
    std::erase(text, '\r');
    return text;
}

void postKey(HWND window, WPARAM virtualKey) {
    PostMessageW(window, WM_KEYDOWN, virtualKey, 1);
    PostMessageW(window, WM_KEYUP, virtualKey, static_cast<LPARAM>(0xC0000001));
}

std::vector<HWND> childrenOf(HWND window, const std::wstring& className) {
    Search search{.className = className, .found = {}};
    EnumChildWindows(window, &addChild, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

}  // namespace velmora::testing
