#pragma once
// A form: named controls, the focus, keys, and the life cycle from construction to unload.

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/platform/screen/control.h"
#include "velmora/platform/screen/layout.h"
#include "velmora/platform/screen/status_line.h"

namespace velmora::screen {

/// A toolkit's observer of a form. Called after the property has its new value.
class FormObserver {
  public:
    virtual ~FormObserver() = default;
    virtual void controlChanged(Control& control, Property property) = 0;
    virtual void formChanged() = 0;  ///< caption, enabled or unloaded has changed
    virtual void focusMoved(Control* control) = 0;
    virtual void statusChanged() {}  ///< a text of the status line has changed
};

class Form {
  public:
    explicit Form(std::string name);
    virtual ~Form();
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    const std::string& name() const { return name_; }
    const std::string& caption() const { return caption_; }
    void setCaption(std::string_view caption);
    const std::string& tag() const { return tag_; }
    void setTag(std::string_view tag) { tag_ = tag; }
    bool enabled() const { return enabled_; }
    /// While the form is disabled, none of its controls takes the focus.
    void setEnabled(bool enabled);
    /// State of the record, last action, reason of an action without effect.
    StatusLine& status() { return status_; }
    const StatusLine& status() const { return status_; }

    /// All controls in order of construction.
    const std::vector<Control*>& controls() const { return controls_; }
    /// By full name: "Text1(3)", "cboTipoPre"; nullptr when there is none.
    Control* find(std::string_view fullName) const;

    /// Setting the layout assigns each control to the frame of its group and names it by its caption.
    const Layout& layout() const { return layout_; }
    void setLayout(Layout layout);
    /// The order of the Tab key; controls missing here cannot be reached with it.
    const std::vector<Control*>& tabOrder() const { return tabOrder_; }
    void setTabOrder(std::vector<Control*> order) { tabOrder_ = std::move(order); }

    // --- Focus -----------------------------------------------------------------------------------------------

    Control* activeControl() const { return active_; }

    /// Focus set by code: LostFocus of the old control, then GotFocus of the new one. Error 5 when the control cannot
    /// take the focus; nothing when it already has it.
    void setFocus(Control& control);

    /// For moves by the user: whether the move overrides a SetFocus inside the old control's LostFocus. `no` for a
    /// person, so that the SetFocus wins; `yes` for a script, which must reach the control that it named.
    enum class Insist { no, yes };
    /// False when the control could not take the focus, before or after LostFocus of the old one.
    bool moveFocus(Control& control, Insist insist = Insist::no);
    /// Takes the focus from the active control: its LostFocus runs and no control has the focus, unless a SetFocus in
    /// it wins.
    void leaveFocus(Insist insist = Insist::no);
    /// Moves to the next or previous stop of the tab order that can take the focus; no move when there is none.
    void tabForward(Insist insist = Insist::no);
    void tabBackward(Insist insist = Insist::no);

    // --- Keys ------------------------------------------------------------------------------------------------

    /// A key from the user or from code (sendKey): the form's KeyDown sees it first. Returns what the key has become;
    /// Key::none when a handler discarded it.
    Key keyDown(Key key, bool shift = false);

    /// Common part of the forms' KeyDown handlers: Enter moves to the next field like Tab and is discarded; the decimal
    /// point of the numeric pad becomes the comma key.
    void passUsualKeys(KeyDown& key);

    /// The same, and Esc closes the form: for secondary windows.
    void passKeysOfSideWindow(KeyDown& key);

    // --- Life cycle ------------------------------------------------------------------------------------------

    /// Called by a toolkit when the form is shown: raises Activate, then the first tab stop takes the focus unless a
    /// control already has it.
    void activate();
    /// Raises Unload and ends the modal show. A second call does nothing.
    void unload();
    bool isUnloaded() const { return unloaded_; }
    /// True when the user can work on it: enabled and not unloaded.
    bool takesInput() const { return enabled_ && !unloaded_; }

    Event<> onActivate;
    Event<> onUnload;
    Event<KeyDown&> onKeyDown;

    void addObserver(FormObserver& observer);
    void removeObserver(FormObserver& observer);

  private:
    friend class Control;
    void add(Control& control) { controls_.push_back(&control); }
    void remove(Control& control);
    void notify(Control& control, Property property);
    void notifyForm();
    void notifyStatus();
    void give(Control* control);
    bool move(const std::function<Control*()>& target, Insist insist);
    void tab(int step, Insist insist);
    Control* nextStop(int step) const;

    std::string name_;
    std::string caption_;
    std::string tag_;
    bool enabled_ = true;
    bool unloaded_ = false;
    std::vector<Control*> controls_;
    std::vector<Control*> tabOrder_;
    Layout layout_;
    Control* active_ = nullptr;
    Control* redirected_ = nullptr;  ///< control to which a SetFocus inside a LostFocus moved the focus
    bool leaving_ = false;           ///< a LostFocus is running
    std::vector<FormObserver*> observers_;
    StatusLine status_{[this] { notifyStatus(); }};
};

}  // namespace velmora::screen
