#include "velmora/adapters/win32/progress_window.h"

#include <algorithm>
#include <utility>

#include "velmora/adapters/win32/canvas.h"
#include "velmora/adapters/win32/message_loop.h"
#include "velmora/adapters/win32/module.h"
#include "velmora/adapters/win32/text.h"
#include "velmora/adapters/win32/window_places.h"

namespace velmora::win32 {

namespace {
constexpr int progressSteps = 1000;
constexpr unsigned betweenEvents = 40;  ///< milliseconds
constexpr int progressWidth = 360;
constexpr int barHeight = 16;
constexpr int cancelWidth = 84;
}  // namespace

class ProgressWindow::Dialog : public NativeWindow {
  public:
    Dialog(const std::wstring& title, HWND owner) : theme_(dpiOf(owner)) {
        create(title, WS_POPUP | WS_CAPTION | WS_SYSMENU, WS_EX_DLGMODALFRAME, owner, {});
        bar_ = createControl(PROGRESS_CLASSW, {}, WS_VISIBLE, handle());
        SendMessageW(bar_, PBM_SETRANGE32, 0, progressSteps);
        button_ = createControl(L"BUTTON", L"&Cancelar", BS_DEFPUSHBUTTON | WS_VISIBLE, handle());
        useFont(button_, theme_.font());
        SendMessageW(handle(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEACCEL | UISF_HIDEFOCUS), 0);
        arrange();
        modality_ = std::make_unique<Modality>(handle());
        ShowWindow(handle(), SW_SHOW);
        SetFocus(button_);
    }
    // The other windows take input again before this one goes.
    ~Dialog() override { modality_.reset(); }

    bool cancelled() const { return cancelled_; }

    void show(std::string_view text, std::optional<double> fraction) {
        text_ = toWide(text);
        const bool endless = (GetWindowLongW(bar_, GWL_STYLE) & PBS_MARQUEE) != 0;
        if (endless == fraction.has_value()) {
            const LONG style = GetWindowLongW(bar_, GWL_STYLE);
            SetWindowLongW(bar_, GWL_STYLE, fraction ? style & ~PBS_MARQUEE : style | PBS_MARQUEE);
            SendMessageW(bar_, PBM_SETMARQUEE, !fraction, 0);
        }
        if (fraction) {
            SendMessageW(bar_, PBM_SETPOS, static_cast<WPARAM>(std::clamp(*fraction, 0.0, 1.0) * progressSteps + 0.5),
                         0);
        }
        InvalidateRect(handle(), nullptr, FALSE);
    }

    bool filter(const MSG& message) {
        const bool own = message.hwnd == handle() || IsChild(handle(), message.hwnd);
        const bool cancels =
            (message.message == WM_KEYDOWN && (message.wParam == VK_ESCAPE || message.wParam == VK_RETURN)) ||
            ((message.message == WM_CHAR || message.message == WM_SYSCHAR) &&
             (message.wParam == L'c' || message.wParam == L'C'));
        cancelled_ = cancelled_ || (own && cancels);
        return own && cancels;
    }

  protected:
    LRESULT receive(UINT message, WPARAM word, LPARAM value) override {
        switch (message) {
            case WM_PAINT:
                paint();
                return 0;
            case WM_ERASEBKGND:
                return 1;
            case WM_CTLCOLORBTN:
                return reinterpret_cast<LRESULT>(theme_.brush(style::window));
            case WM_COMMAND:
                cancelled_ = cancelled_ || HIWORD(word) == BN_CLICKED;
                return 0;
            case WM_CLOSE:
                cancelled_ = true;
                return 0;
            default:
                return NativeWindow::receive(message, word, value);
        }
    }

  private:
    void arrange() {
        const int edge = theme_.scaled(style::group);
        const int gap = theme_.scaled(style::unit);
        const int width = theme_.scaled(progressWidth);
        const int line = theme_.lineHeight(theme_.font());
        textBox_ = {.left = edge, .top = edge, .width = width - 2 * edge, .height = 2 * line};
        const Box bar{.left = edge,
                      .top = textBox_.bottom() + gap,
                      .width = width - 2 * edge,
                      .height = theme_.scaled(barHeight)};
        moveTo(bar_, bar);
        const int button = theme_.scaled(cancelWidth);
        const int height = theme_.fieldHeight(theme_.font()) + theme_.scaled(3);
        moveTo(button_, {.left = width - edge - button, .top = bar.bottom() + edge, .width = button, .height = height});
        placeOverOwner(handle(), width, bar.bottom() + 2 * edge + height);
    }
    void paint() {
        PAINTSTRUCT job;
        HDC target = BeginPaint(handle(), &job);
        {
            const Box area = clientBox(handle());
            Canvas canvas(target, area);
            canvas.fill(area, style::window);
            canvas.text(textBox_, text_, theme_.font(), style::text, DT_WORDBREAK | DT_NOPREFIX | DT_END_ELLIPSIS);
        }
        EndPaint(handle(), &job);
    }

    Theme theme_;
    std::wstring text_;
    Box textBox_;
    HWND bar_ = nullptr;
    HWND button_ = nullptr;
    bool cancelled_ = false;
    std::unique_ptr<Modality> modality_;
};

ProgressWindow::ProgressWindow(std::wstring title, HWND owner, unsigned delay)
    : title_(std::move(title)), owner_(owner), delay_(delay), started_(GetTickCount64()), lastShown_(started_) {}

ProgressWindow::~ProgressWindow() = default;

void ProgressWindow::show(std::string_view text, std::optional<double> fraction) {
    if (dialog_ == nullptr && GetTickCount64() - started_ >= delay_) {
        dialog_ = std::make_unique<Dialog>(title_, owner_);
    }
    if (GetTickCount64() - lastShown_ < betweenEvents && delay_ > 0) {
        return;
    }
    if (dialog_ == nullptr) {
        runPending(Input::heldBack);
    } else {
        if (!dialog_->cancelled()) {
            dialog_->show(text, fraction);
        }
        runPending(Input::dispatched, [this](const MSG& message) { return dialog_->filter(message); });
    }
    lastShown_ = GetTickCount64();
}

bool ProgressWindow::cancelled() {
    return dialog_ != nullptr && dialog_->cancelled();
}

HWND ProgressWindow::window() const {
    return dialog_ != nullptr ? dialog_->handle() : nullptr;
}

}  // namespace velmora::win32
