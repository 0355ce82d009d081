#include "velmora/adapters/win32/form_window.h"

#include <algorithm>
#include <utility>

#include <commctrl.h>

#include "velmora/adapters/win32/combo_box_view.h"
#include "velmora/adapters/win32/frame_view.h"
#include "velmora/adapters/win32/message_loop.h"
#include "velmora/adapters/win32/module.h"
#include "velmora/adapters/win32/sketch_view.h"
#include "velmora/adapters/win32/text.h"
#include "velmora/adapters/win32/toolbar_view.h"
#include "velmora/adapters/win32/win32_screen.h"
#include "velmora/adapters/win32/window_places.h"
#include "velmora/platform/toolkit/effective_state.h"
#include "velmora/platform/toolkit/key_routing.h"
#include "velmora/platform/toolkit/layout_nature.h"
#include "velmora/platform/toolkit/mnemonics.h"

namespace velmora::win32 {

namespace {

constexpr int workingWidth = 1280;
constexpr int workingHeight = 800;
constexpr int titleBarRoom = 32;
constexpr int scrollStep = 24;
constexpr UINT workWaits = WM_APP + 1;

bool isPress(UINT message) {
    switch (message) {
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
        case WM_RBUTTONDOWN:
        case WM_RBUTTONDBLCLK:
        case WM_MBUTTONDOWN:
        case WM_MBUTTONDBLCLK:
            return true;
        default:
            return false;
    }
}

}  // namespace

/// The child window that holds the controls. What it is told, the form answers.
class FormWindow::Page : public NativeWindow {
  public:
    Page(FormWindow& form, HWND parent) : form_(form) {
        create({}, WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT, parent, {});
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
    page_ = std::make_unique<Page>(*this, handle());
    build();
    form_.addObserver(*this);
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
    {
        const CreationScope scope;
        toolTips_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, 0,
                                    0, 0, 0, handle(), nullptr, ownModule(), nullptr);
    }
    SendMessageW(toolTips_, TTM_SETMAXTIPWIDTH, 0, theme_->scaled(600));
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
    SIZE size{needs.width.natural + edges, needs.height.natural + edges};
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
    const SIZE least{needs.width.least + 2 * edge, needs.height.least + 2 * edge};
    scrollBars(clientBox(handle()), least);
    const Box room = clientBox(handle());
    const SIZE size{std::max<LONG>(room.width, least.cx), std::max<LONG>(room.height, least.cy)};
    moveTo(page_->handle(), {.left = -scrolled_.x, .top = -scrolled_.y, .width = size.cx, .height = size.cy});
    places_->place({.left = edge, .top = edge, .width = size.cx - 2 * edge, .height = size.cy - 2 * edge});
    arranging_ = false;
}

/// Shows a bar where the window is smaller than the form needs.
void FormWindow::scrollBars(const Box& room, SIZE needed) {
    const auto bar = [&](int which, LONG need, LONG has, LONG& position) {
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
        info.nMax = need > has ? need - 1 : 0;
        info.nPage = static_cast<UINT>(need > has ? has : 1);
        position = std::clamp<LONG>(position, 0, std::max<LONG>(need - has, 0));
        info.nPos = position;
        SetScrollInfo(handle(), which, &info, TRUE);
    };
    bar(SB_VERT, needed.cy, room.height, scrolled_.y);
    const Box left = clientBox(handle());
    bar(SB_HORZ, needed.cx, left.width, scrolled_.x);
    const Box rest = clientBox(handle());
    if (rest.height != room.height) {
        bar(SB_VERT, needed.cy, rest.height, scrolled_.y);
    }
}

void FormWindow::scrollTo(int x, int y) {
    const Box room = clientBox(handle());
    const Box page = clientBox(page_->handle());
    const POINT wanted{std::clamp(x, 0, std::max(page.width - room.width, 0)),
                       std::clamp(y, 0, std::max(page.height - room.height, 0))};
    if (wanted.x == scrolled_.x && wanted.y == scrolled_.y) {
        return;
    }
    scrolled_ = wanted;
    SetScrollPos(handle(), SB_HORZ, scrolled_.x, TRUE);
    SetScrollPos(handle(), SB_VERT, scrolled_.y, TRUE);
    moveTo(page_->handle(), {.left = -scrolled_.x, .top = -scrolled_.y, .width = page.width, .height = page.height});
}

void FormWindow::scrollBy(int bar, WPARAM request) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    GetScrollInfo(handle(), bar, &info);
    int position = info.nPos;
    switch (LOWORD(request)) {
        case SB_LINEUP:
            position -= theme_->scaled(scrollStep);
            break;
        case SB_LINEDOWN:
            position += theme_->scaled(scrollStep);
            break;
        case SB_PAGEUP:
            position -= static_cast<int>(info.nPage);
            break;
        case SB_PAGEDOWN:
            position += static_cast<int>(info.nPage);
            break;
        case SB_THUMBPOSITION:
        case SB_THUMBTRACK:
            position = info.nTrackPos;
            break;
        default:
            return;
    }
    bar == SB_VERT ? scrollTo(scrolled_.x, position) : scrollTo(position, scrolled_.y);
}

/// Scrolls the control with the focus into view.
void FormWindow::showFocused() {
    if (focused_ == nullptr) {
        return;
    }
    const Box room = clientBox(handle());
    const Box& box = focused_->box();
    const int edge = theme_->scaled(style::group);
    const auto bring = [edge](int from, int to, int has, LONG now) {
        const int shown = std::max(static_cast<int>(now), to + edge - has);
        return std::min(shown, from - edge);
    };
    scrollTo(bring(box.left, box.right(), room.width, scrolled_.x),
             bring(box.top, box.bottom(), room.height, scrolled_.y));
}

void FormWindow::useDpi(int dpi, const RECT& wanted) {
    theme_ = std::make_unique<Theme>(dpi);
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
}

ControlView* FormWindow::viewOfWindow(HWND window) const {
    for (; window != nullptr && window != handle(); window = GetParent(window)) {
        if (const auto found = viewByWindow_.find(window); found != viewByWindow_.end()) {
            return found->second;
        }
    }
    return nullptr;
}

std::optional<LRESULT> FormWindow::incoming(ControlView& view, HWND, UINT message, WPARAM, LPARAM value) {
    if (isPress(message)) {
        return handlePress(view, message, value) ? std::optional<LRESULT>(0) : std::nullopt;
    }
    switch (message) {
        case WM_CONTEXTMENU:
        case WM_MOUSEWHEEL:
        case WM_PASTE:
        case WM_CUT:
            return acceptsInput() ? std::nullopt : std::optional<LRESULT>(0);
        case WM_SETFOCUS:
            handleForeignFocus(view);
            return std::nullopt;
        case WM_CAPTURECHANGED:
            if (clicking_ == &view) {
                // The mouse has been released, perhaps elsewhere: the keyboard goes back to where the model has it.
                clicking_ = nullptr;
                later([this] { moveKeyboard(); });
            }
            return std::nullopt;
        default:
            return std::nullopt;
    }
}

bool FormWindow::handlePress(ControlView& view, UINT message, LPARAM value) {
    if (!acceptsInput()) {
        return true;
    }
    if (view.actsOnClick()) {
        clicking_ = message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK ? &view : nullptr;
        return false;
    }
    screen::Control& control = view.control();
    const bool hadFocus = form_.activeControl() == &control;
    const int boxesBefore = screen_.boxesShown();
    const POINT at = pointOf(value);
    const std::wstring aim = view.aimOf(at);
    bool arrived = false;
    feed([&] { arrived = bringFocus(control); });
    // Leaving a field may fill a grid with other rows: a press on a row, or on the button in its cell, does nothing
    // when another row is there by then.
    if (!arrived || form_.activeControl() != &control || screen_.boxesShown() != boxesBefore || view.aimOf(at) != aim) {
        return true;
    }
    return !hadFocus && view.pressed();
}

// Focus set by other means, such as assistive technology, is an action of the user like any other.
void FormWindow::handleForeignFocus(ControlView& view) {
    if (syncing_ || clicking_ != nullptr || form_.activeControl() == &view.control()) {
        return;
    }
    later([this, control = &view.control()] { feed([&] { bringFocus(*control); }); });
}

bool FormWindow::filter(const MSG& message) {
    if (message.hwnd != handle() && !IsChild(handle(), message.hwnd)) {
        return false;
    }
    ControlView* view = viewOfWindow(message.hwnd);
    switch (message.message) {
        case WM_KEYDOWN:
            return handleKey(view, message.wParam);
        case WM_CHAR:
            return handleCharacter(view, message.wParam);
        case WM_SYSKEYDOWN:
            return !acceptsInput() && message.wParam != VK_F4;
        case WM_SYSCHAR:
            return handleMnemonic(message.wParam);
        default:
            return false;
    }
}

bool FormWindow::handleKey(ControlView* view, WPARAM virtualKey) {
    if (!acceptsInput()) {
        return true;
    }
    if (view != nullptr && view->ownsKeys()) {
        return false;
    }
    if (const std::optional<KeyStroke> stroke = strokeOfKey(virtualKey)) {
        return route(view, *stroke);
    }
    return view != nullptr && view->nativeKey(virtualKey);
}

bool FormWindow::handleCharacter(ControlView* view, WPARAM unit) {
    if (!acceptsInput()) {
        return true;
    }
    if (view != nullptr && view->ownsKeys()) {
        return false;
    }
    const std::optional<char32_t> character = characters_.add(unit);
    if (!character) {
        return true;
    }
    const std::optional<KeyStroke> stroke = strokeOfCharacter(*character);
    return stroke && route(view, *stroke);
}

bool FormWindow::route(ControlView* view, const KeyStroke& stroke) {
    bool used = true;
    feed([&] {
        used = toolkit::routeKey(form_, stroke,
                                 [&](const KeyStroke& turned) { return view == nullptr || view->key(turned); });
    });
    return used;
}

bool FormWindow::handleMnemonic(WPARAM unit) {
    if (!acceptsInput()) {
        return true;
    }
    wchar_t letter = static_cast<wchar_t>(unit);
    CharUpperBuffW(&letter, 1);
    const std::optional<toolkit::MnemonicTarget> target = toolkit::targetOf(form_, letter);
    if (!target) {
        return false;
    }
    if (target->button != nullptr) {
        feed([&] {
            if (bringFocus(*target->button)) {
                target->button->onClick();
            }
        });
    } else if (auto* bar = dynamic_cast<ToolbarView*>(viewOf(*target->bar))) {
        bar->press(target->item);
    }
    return true;
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
            scrollBy(SB_VERT, word);
            return 0;
        case WM_HSCROLL:
            scrollBy(SB_HORZ, word);
            return 0;
        case WM_MOUSEWHEEL:
            scrollTo(scrolled_.x,
                     scrolled_.y - static_cast<short>(HIWORD(word)) * theme_->scaled(scrollStep) / (WHEEL_DELTA / 3));
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
                feed([this] { form_.unload(); });
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

void FormWindow::setToolTip(HWND window, const std::wstring& text) {
    const auto [known, isNew] = toolTipByWindow_.try_emplace(window);
    if (!isNew && known->second == text) {
        return;
    }
    known->second = text;
    TOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = page_->handle();
    tool.uId = reinterpret_cast<UINT_PTR>(window);
    tool.lpszText = known->second.data();
    if (isNew) {
        SendMessageW(toolTips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    } else {
        SendMessageW(toolTips_, TTM_POP, 0, 0);
        SendMessageW(toolTips_, TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
    }
}

}  // namespace velmora::win32
