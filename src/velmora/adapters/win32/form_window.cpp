#include "velmora/adapters/win32/form_window.h"

#include <algorithm>
#include <utility>

#include "velmora/adapters/win32/combo_box_view.h"
#include "velmora/adapters/win32/frame_view.h"
#include "velmora/adapters/win32/message_loop.h"
#include "velmora/adapters/win32/module.h"
#include "velmora/adapters/win32/page_scroller.h"
#include "velmora/adapters/win32/sketch_view.h"
#include "velmora/adapters/win32/status_strip.h"
#include "velmora/adapters/win32/text.h"
#include "velmora/adapters/win32/tool_tips.h"
#include "velmora/adapters/win32/win32_screen.h"
#include "velmora/adapters/win32/window_places.h"
#include "velmora/platform/screen/close_request.h"
#include "velmora/platform/toolkit/effective_state.h"
#include "velmora/platform/toolkit/layout_nature.h"

namespace velmora::win32 {

namespace {

constexpr int workingWidth = 1280;
constexpr int workingHeight = 800;
constexpr int titleBarRoom = 32;
constexpr int scrollStep = 24;
constexpr int linesOfWheel = 3;  ///< scrolled by a notch of the wheel
constexpr int toolTipWidth = 600;
constexpr UINT workWaits = WM_APP + 1;

}  // namespace

/// The child window that holds the controls. What it is told, the form answers.
class FormWindow::Page : public NativeWindow {
  public:
    Page(FormWindow& form, HWND parent) : form_(form) {
        create({}, WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, WS_EX_CONTROLPARENT, parent, {});
    }

  protected:
    LRESULT receive(UINT message, WPARAM word, LPARAM value) override {
        const std::optional<LRESULT> answer = form_.receiveOnPage(message, word, value);
        return answer ? *answer : NativeWindow::receive(message, word, value);
    }

  private:
    FormWindow& form_;
};

FormWindow::FormWindow(Win32Screen& screen, screen::Form& form, HWND owner, int dpi)
    : screen_(screen), form_(form), actions_(form, *this) {
    create(toWide(form.caption()), WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 0, owner, {});
    theme_ = std::make_unique<Theme>(dpi != 0 ? dpi : dpiOf(handle()));
    status_ = std::make_unique<StatusStrip>(handle(), *theme_);
    page_ = std::make_unique<Page>(*this, handle());
    scroller_ = std::make_unique<PageScroller>(handle(), page_->handle());
    build();
    form_.addObserver(*this);
    showStatus();
}

FormWindow::~FormWindow() {
    form_.removeObserver(*this);
    // The windows of the views go with their parent, but their messages must not reach views that are gone.
    places_.reset();
    parts_.clear();
}

HWND FormWindow::page() const {
    return page_->handle();
}

void FormWindow::build() {
    toolTips_ = std::make_unique<ToolTips>(handle(), page(), theme_->scaled(toolTipWidth));
    LayoutBuilder builder(*this);
    const toolkit::Distances& distances = *this;
    places_ = std::make_unique<toolkit::LayoutPlaces>(toolkit::planOf(form_.layout()), builder, distances);
    parts_ = builder.takeParts();
    connectViews();
    // Mnemonics and the mark of the keyboard are shown from the beginning, also to who has used the mouse only.
    SendMessageW(handle(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEACCEL | UISF_HIDEFOCUS), 0);
}

void FormWindow::connectViews() {
    for (const auto& part : parts_) {
        auto* view = dynamic_cast<ControlView*>(part.get());
        if (view == nullptr) {
            continue;
        }
        views_.push_back(view);
        if (!viewByControl_.emplace(&view->control(), view).second) {
            furtherViews_[&view->control()].push_back(view);
        }
        if (auto* sketch = dynamic_cast<SketchView*>(view)) {
            for (const screen::Sketch::PlacedLabel& label : sketch->sketch().labels()) {
                sketchesByLabel_[label.box].push_back(sketch);
            }
        }
        view->updateAll();
    }
}

ControlView* FormWindow::viewOf(const screen::Control& control) const {
    const auto found = viewByControl_.find(&control);
    return found == viewByControl_.end() ? nullptr : found->second;
}

int FormWindow::pixels(toolkit::Spacing spacing) const {
    return theme_->scaled(style::pixels(spacing));
}

toolkit::GroupEdges FormWindow::edgesOf(const screen::Layout& group) const {
    return FrameView::edgesOf(static_cast<const screen::Frame&>(*group.control), *theme_);
}

SIZE FormWindow::openingSize() {
    const Box room = workArea(handle());
    const toolkit::Needs needs = places_->measure();
    const int edges = 2 * theme_->scaled(style::group);
    SIZE size{needs.width.natural + edges, needs.height.natural + edges + status_->height()};
    const LONG width = theme_->scaled(workingWidth);
    const LONG height = theme_->scaled(workingHeight);
    if (toolkit::growsDownward(form_.layout()) && size.cy > height * 3 / 4) {
        size = {std::max(size.cx, width), std::max(size.cy, height)};
    }
    return {std::min<LONG>(size.cx, room.width), std::min<LONG>(size.cy, room.height - theme_->scaled(titleBarRoom))};
}

void FormWindow::runModal() {
    if (form_.isUnloaded()) {
        return;
    }
    settle();
    const SIZE size = openingSize();
    placeOverOwner(handle(), size.cx, size.cy);
    {
        const Modality modality(handle());
        ShowWindow(handle(), SW_SHOW);
        SetForegroundWindow(handle());
        feed([this] { form_.activate(); });
        runUntil([this] { return form_.isUnloaded(); }, [this](const MSG& message) { return filter(message); });
    }
    ShowWindow(handle(), SW_HIDE);
}

// --- Arrangement ----------------------------------------------------------------------------------------------

void FormWindow::arrangeLater() {
    if (!dirty_) {
        dirty_ = true;
        if (handle() != nullptr) {
            PostMessageW(handle(), workWaits, 0, 0);
        }
    }
}

void FormWindow::later(std::function<void()> work) {
    waiting_.push_back(std::move(work));
    PostMessageW(handle(), workWaits, 0, 0);
}

void FormWindow::settle() {
    const std::vector<std::function<void()>> works = std::exchange(waiting_, {});
    for (const auto& work : works) {
        work();
    }
    if (dirty_) {
        arrange();
    }
}

void FormWindow::arrange() {
    if (arranging_ || places_ == nullptr || page_ == nullptr) {
        return;
    }
    arranging_ = true;
    dirty_ = false;
    const int edge = theme_->scaled(style::group);
    const toolkit::Needs needs = places_->measure();
    scroller_->setFooter(status_->height());
    scroller_->placePage({needs.width.least + 2 * edge, needs.height.least + 2 * edge});
    const Box seen = clientBox(handle());
    moveTo(status_->handle(),
           {.top = std::max(seen.height - status_->height(), 0), .width = seen.width, .height = status_->height()});
    const Box size = clientBox(page_->handle());
    places_->place({.left = edge, .top = edge, .width = size.width - 2 * edge, .height = size.height - 2 * edge});
    arranging_ = false;
}

/// Scrolls the control with the focus into view.
void FormWindow::showFocused() {
    if (focused_ == nullptr) {
        return;
    }
    scroller_->bringIntoView(focused_->box(), theme_->scaled(style::group));
}

void FormWindow::useDpi(int dpi, const RECT& wanted) {
    theme_ = std::make_unique<Theme>(dpi);
    status_->useTheme(*theme_);
    for (const auto& part : parts_) {
        part->useTheme();
    }
    dirty_ = true;
    SetWindowPos(handle(), nullptr, wanted.left, wanted.top, wanted.right - wanted.left, wanted.bottom - wanted.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    settle();
    RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_ERASE);
}

// --- Changes of the model -------------------------------------------------------------------------------------

void FormWindow::controlChanged(screen::Control& control, screen::Property property) {
    if (ControlView* view = viewOf(control)) {
        view->update(property);
    }
    if (const auto further = furtherViews_.find(&control); further != furtherViews_.end()) {
        for (ControlView* view : further->second) {
            view->update(property);
        }
    }
    const bool toldByStatus = property == screen::Property::hint || property == screen::Property::warning;
    if (toldByStatus && &control == form_.activeControl()) {
        showStatus();
    }
    if (const auto sketches = sketchesByLabel_.find(&control); sketches != sketchesByLabel_.end()) {
        for (SketchView* sketch : sketches->second) {
            sketch->labelChanged();
        }
    }
    if (const auto* frame = dynamic_cast<const screen::Frame*>(&control)) {
        frameChanged(*frame, property);
    }
    if (property == screen::Property::visible) {
        arrangeLater();
    }
}

void FormWindow::frameChanged(const screen::Frame& frame, screen::Property property) {
    if (property != screen::Property::visible && property != screen::Property::enabled) {
        return;
    }
    for (ControlView* view : views_) {
        if (toolkit::standsIn(view->control(), frame)) {
            view->update(property);
        }
    }
}

void FormWindow::formChanged() {
    SetWindowTextW(handle(), toWide(form_.caption()).c_str());
    // The loop looks again whether it is done.
    PostMessageW(handle(), WM_NULL, 0, 0);
}

void FormWindow::focusMoved(screen::Control* control) {
    ControlView* next = control != nullptr ? viewOf(*control) : nullptr;
    ControlView* last = std::exchange(focused_, next);
    if (last != nullptr) {
        last->focusLeft();
    }
    moveKeyboard();
    if (next != nullptr) {
        next->focusGained();
    }
    showStatus();
}

// What is under way is painted at once: the program may be waiting without handling messages.
void FormWindow::statusChanged() {
    showStatus();
    if (!form_.status().work().empty()) {
        UpdateWindow(status_->handle());
    }
}

// The state is asked of the form, which may read the database: an error is shown like that of any other event.
void FormWindow::showStatus() {
    try {
        status_->show(toolkit::statusTextOf(form_));
    } catch (...) {
        reportLater(std::current_exception());
    }
}

// --- Actions of the user --------------------------------------------------------------------------------------

void FormWindow::showError(std::exception_ptr error) {
    screen_.showError(std::move(error));
}

void FormWindow::feed(const std::function<void()>& action) {
    ++actionsUnderWay_;
    actions_.run(action);
    --actionsUnderWay_;
    if (actionsUnderWay_ == 0) {
        showStatus();
        screen_.actionEnded();
    }
}

bool FormWindow::bringFocus(screen::Control& control) {
    return actions_.turnTo(control);
}

bool FormWindow::acceptsInput() const {
    return form_.takesInput();
}

bool FormWindow::hasFocus(const screen::Control& control) const {
    return form_.activeControl() == &control;
}

void FormWindow::reportLater(std::exception_ptr error) {
    later([this, error] { screen_.showError(error); });
}

void FormWindow::repaint(const Box& box) {
    if (page_ != nullptr) {
        const RECT rect{box.left, box.top, box.right(), box.bottom()};
        InvalidateRect(page_->handle(), &rect, FALSE);
    }
}

// While a box stands above it, the window is disabled; it moves the keyboard when it becomes active again.
void FormWindow::moveKeyboard() {
    if (!IsWindowEnabled(handle()) || !IsWindowVisible(handle())) {
        return;
    }
    const auto* list = dynamic_cast<const ComboBoxView*>(focused_);
    if (list != nullptr && list->isOpen()) {
        return;
    }
    if (dirty_) {
        arrange();
    }
    showFocused();
    HWND target = focused_ != nullptr ? focused_->focusTarget() : nullptr;
    if (target == nullptr || !IsWindowEnabled(target) || !IsWindowVisible(target)) {
        target = page_->handle();
    }
    syncing_ = true;
    if (GetFocus() != target) {
        SetFocus(target);
    }
    syncing_ = false;
}

void FormWindow::addInput(HWND window, ControlView& view) {
    viewByWindow_[window] = &view;
    toolTips_->add(window);
}

ControlView* FormWindow::viewOfWindow(HWND window) const {
    for (; window != nullptr && window != handle(); window = GetParent(window)) {
        if (const auto found = viewByWindow_.find(window); found != viewByWindow_.end()) {
            return found->second;
        }
    }
    return nullptr;
}

// --- Messages -------------------------------------------------------------------------------------------------

LRESULT FormWindow::receive(UINT message, WPARAM word, LPARAM value) {
    switch (message) {
        case WM_SIZE:
            if (page_ != nullptr && word != SIZE_MINIMIZED) {
                dirty_ = true;
                arrange();
            }
            return 0;
        case WM_DPICHANGED:
            useDpi(HIWORD(word), *reinterpret_cast<const RECT*>(value));
            return 0;
        case WM_VSCROLL:
            scroller_->follow(SB_VERT, word, theme_->scaled(scrollStep));
            return 0;
        case WM_HSCROLL:
            scroller_->follow(SB_HORZ, word, theme_->scaled(scrollStep));
            return 0;
        case WM_MOUSEWHEEL:
            scroller_->scrollBy(
                0, -static_cast<short>(HIWORD(word)) * theme_->scaled(scrollStep) / (WHEEL_DELTA / linesOfWheel));
            return 0;
        case WM_SETFOCUS:
            moveKeyboard();
            return 0;
        case WM_SETCURSOR:
            if (screen_.showBusyPointer()) {
                return TRUE;
            }
            break;
        case WM_ERASEBKGND:
            return 1;
        case WM_CLOSE:
            if (acceptsInput()) {
                feed([this] { screen::requestClose(form_); });
            }
            return 0;
        case workWaits:
            settle();
            return 0;
        default:
            break;
    }
    return NativeWindow::receive(message, word, value);
}

std::optional<LRESULT> FormWindow::receiveOnPage(UINT message, WPARAM word, LPARAM value) {
    if (page_ == nullptr) {
        return std::nullopt;
    }
    switch (message) {
        case WM_PAINT:
            paintPage();
            return 0;
        case WM_ERASEBKGND:
            return 1;
        case WM_MOUSEWHEEL:
            return receive(message, word, value);
        case WM_COMMAND:
            if (ControlView* view = viewOfWindow(reinterpret_cast<HWND>(value))) {
                view->command(HIWORD(word));
            }
            return 0;
        case WM_NOTIFY: {
            if (toolTips_->answer(value, [this](HWND window) { return toolTipOf(window); })) {
                return 0;
            }
            const auto& what = *reinterpret_cast<const NMHDR*>(value);
            ControlView* view = viewOfWindow(what.hwndFrom);
            return view != nullptr ? view->notified(what) : 0;
        }
        case WM_MEASUREITEM: {
            // Asked for while the control is being created, before it has a view.
            auto& item = *reinterpret_cast<MEASUREITEMSTRUCT*>(value);
            item.itemHeight = static_cast<UINT>(theme_->scaled(style::gridRow));
            return TRUE;
        }
        case WM_DRAWITEM: {
            const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(value);
            if (ControlView* view = viewOfWindow(item.hwndItem)) {
                view->drawItem(item);
            }
            return TRUE;
        }
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORSTATIC:
        case WM_CTLCOLORBTN: {
            ControlView* view = viewOfWindow(reinterpret_cast<HWND>(value));
            HBRUSH brush = view != nullptr ? view->colors(reinterpret_cast<HDC>(word)) : nullptr;
            return brush != nullptr ? std::optional(reinterpret_cast<LRESULT>(brush)) : std::nullopt;
        }
        default:
            return std::nullopt;
    }
}

void FormWindow::paintPage() {
    if (dirty_) {
        arrange();
    }
    PAINTSTRUCT job;
    HDC target = BeginPaint(page_->handle(), &job);
    {
        const RECT& r = job.rcPaint;
        const Box area{.left = r.left, .top = r.top, .width = r.right - r.left, .height = r.bottom - r.top};
        Canvas canvas(target, area);
        canvas.fill(area, style::window);
        for (const auto& part : parts_) {
            const Box& box = part->box();
            const bool touched = box.left < area.right() && area.left < box.right() && box.top < area.bottom() &&
                                 area.top < box.bottom();
            if (part->isShown() && touched) {
                part->draw(canvas);
            }
        }
    }
    EndPaint(page_->handle(), &job);
}

// An error cannot be shown beside the mouse: it is reported after the message.
std::wstring FormWindow::toolTipOf(HWND window) {
    ControlView* view = viewOfWindow(window);
    try {
        return view != nullptr ? view->toolTip() : std::wstring();
    } catch (...) {
        reportLater(std::current_exception());
        return {};
    }
}

void FormWindow::forgetToolTip() {
    toolTips_->forget();
}

}  // namespace velmora::win32
