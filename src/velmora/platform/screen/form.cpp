#include "velmora/platform/screen/form.h"

#include <algorithm>
#include <exception>

#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/screen/places.h"
#include "velmora/platform/screen/sketch.h"

namespace velmora::screen {

Form::Form(std::string name) : name_(std::move(name)) {}

Form::~Form() = default;

void Form::setCaption(std::string_view caption) {
    caption_ = caption;
    notifyForm();
}

void Form::setEnabled(bool enabled) {
    if (enabled_ != enabled) {
        enabled_ = enabled;
        notifyForm();
    }
}

Control* Form::find(std::string_view fullName) const {
    const auto found = std::ranges::find_if(controls_, [&](const Control* c) { return c->fullName() == fullName; });
    return found == controls_.end() ? nullptr : *found;
}

namespace {

// Assigns the controls of a group to its frame, and names fields without an accessible name by their caption.
void settle(const Layout& node, Frame* frame) {
    if (node.control != nullptr) {
        node.control->setFrame(frame);
        if (node.control->accessibleName().empty() && !node.caption.empty()) {
            node.control->setAccessibleName(node.caption);
        }
        if (const auto* sketch = dynamic_cast<Sketch*>(node.control)) {
            for (const Sketch::PlacedLabel& placed : sketch->labels()) {
                placed.box->setFrame(frame);
            }
        }
    }
    if (node.captionLabel != nullptr) {
        node.captionLabel->setFrame(frame);
    }
    Frame* inner = node.kind == Layout::Kind::group ? static_cast<Frame*>(node.control) : frame;
    for (const Layout& child : node.children) {
        settle(child, inner);
    }
}

}  // namespace

void Form::setLayout(Layout layout) {
    layout_ = std::move(layout);
    settle(layout_, nullptr);
}

void Form::setFocus(Control& control) {
    if (!control.canTakeFocus()) {
        runtime::raise(runtime::invalidProcedureCall);
    }
    if (leaving_) {
        redirected_ = &control;
        return;
    }
    move([&] { return &control; }, Insist::no);
}

bool Form::moveFocus(Control& control, Insist insist) {
    return move([&] { return &control; }, insist);
}

void Form::leaveFocus(Insist insist) {
    move([] { return nullptr; }, insist);
}

void Form::tabForward(Insist insist) {
    tab(1, insist);
}

void Form::tabBackward(Insist insist) {
    tab(-1, insist);
}

void Form::tab(int step, Insist insist) {
    if (nextStop(step) != nullptr) {
        move([&] { return nextStop(step); }, insist);
    }
}

// Chosen C-350: a control in a shared place where another child is shown is no stop: the focus would be invisible.
Control* Form::nextStop(int step) const {
    const int count = static_cast<int>(tabOrder_.size());
    const auto here = std::ranges::find(tabOrder_, active_);
    const int start = here != tabOrder_.end() ? static_cast<int>(here - tabOrder_.begin()) : (step > 0 ? -1 : count);
    for (int walked = 1; walked <= count; ++walked) {
        const int at = ((start + step * walked) % count + count) % count;
        Control* candidate = tabOrder_[static_cast<std::size_t>(at)];
        if (candidate != active_ && candidate->tabStop() && candidate->canTakeFocus() && isSeen(*candidate)) {
            return candidate;
        }
    }
    return nullptr;
}

// `target` is evaluated twice: LostFocus of the old control may hide or disable the first result.
bool Form::move(const std::function<Control*()>& target, Insist insist) {
    Control* wanted = target();
    if (wanted != nullptr && wanted == active_) {
        return true;
    }
    if (wanted != nullptr && !wanted->canTakeFocus()) {
        return false;
    }
    // An error in LostFocus must not trap the user in the field: the move is completed and the error rethrown
    // afterwards.
    std::exception_ptr failure;
    redirected_ = nullptr;
    if (active_ != nullptr) {
        leaving_ = true;
        try {
            Control* left = active_;
            left->onLostFocus();
        } catch (...) {
            failure = std::current_exception();
        }
        leaving_ = false;
    }
    Control* next = target();
    if (redirected_ != nullptr && insist == Insist::no) {
        next = redirected_;
    }
    redirected_ = nullptr;
    const bool arrives = next != nullptr && next->canTakeFocus() && !unloaded_;
    try {
        give(arrives ? next : nullptr);
    } catch (...) {
        if (!failure) {
            failure = std::current_exception();
        }
    }
    if (failure) {
        std::rethrow_exception(failure);
    }
    return arrives;
}

void Form::give(Control* control) {
    active_ = control;
    for (FormObserver* observer : std::vector(observers_)) {
        observer->focusMoved(control);
    }
    if (control != nullptr) {
        control->onGotFocus();
    }
}

Key Form::keyDown(Key key, bool shift) {
    if (!takesInput()) {
        return Key::none;
    }
    KeyDown event{key, shift};
    onKeyDown(event);
    return event.key;
}

void Form::passUsualKeys(KeyDown& key) {
    if (key.key == Key::enter) {
        key.key = Key::none;
        tabForward();
    } else if (key.key == Key::padDecimal) {
        key.key = Key::comma;
    }
}

void Form::passKeysOfSideWindow(KeyDown& key) {
    passUsualKeys(key);
    if (key.key == Key::escape) {
        unload();
    }
}

void Form::activate() {
    onActivate();
    if (active_ == nullptr && enabled_ && !unloaded_) {
        tabForward();
    }
}

void Form::unload() {
    if (!unloaded_) {
        unloaded_ = true;
        onUnload();
        notifyForm();
    }
}

void Form::addObserver(FormObserver& observer) {
    observers_.push_back(&observer);
}

void Form::removeObserver(FormObserver& observer) {
    std::erase(observers_, &observer);
}

void Form::remove(Control& control) {
    std::erase(controls_, &control);
    std::erase(tabOrder_, &control);
    if (active_ == &control) {
        active_ = nullptr;
    }
}

void Form::notify(Control& control, Property property) {
    if (observers_.empty()) {
        return;
    }
    for (FormObserver* observer : std::vector(observers_)) {
        observer->controlChanged(control, property);
    }
}

void Form::notifyForm() {
    for (FormObserver* observer : std::vector(observers_)) {
        observer->formChanged();
    }
}

void Form::notifyStatus() {
    for (FormObserver* observer : std::vector(observers_)) {
        observer->statusChanged();
    }
}

}  // namespace velmora::screen
