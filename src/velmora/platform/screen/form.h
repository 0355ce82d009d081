#pragma once
// A form: named controls, who has the focus, keys, and a life from its making to its unloading.

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/platform/screen/control.h"
#include "velmora/platform/screen/layout.h"

namespace velmora::screen {

/// A toolkit's ear on a form. Called after the property has its new value.
class FormObserver {
  public:
    virtual ~FormObserver() = default;
    virtual void controlChanged(Control& control, Property property) = 0;
    virtual void formChanged() = 0;  ///< caption, enabled, unloaded
    virtual void focusMoved(Control* control) = 0;
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
    /// While a whole form is disabled none of its controls takes the focus.
    void setEnabled(bool enabled);

    /// Every control in the order of its making.
    const std::vector<Control*>& controls() const { return controls_; }
    /// By full name: "Text1(3)", "cboTipoPre". None: nullptr.
    Control* find(std::string_view fullName) const;

    /// Setting it puts each control into the frame of its group and names it by its caption.
    const Layout& layout() const { return layout_; }
    void setLayout(Layout layout);
    /// The order of the Tab key; controls that are not in it cannot be reached by it.
    const std::vector<Control*>& tabOrder() const { return tabOrder_; }
    void setTabOrder(std::vector<Control*> order) { tabOrder_ = std::move(order); }

    // --- Focus -----------------------------------------------------------------------------------------------

    Control* activeControl() const { return active_; }

    /// What code does: LostFocus of the old control, then GotFocus of the new one. Error 5 when the control cannot
    /// take the focus; nothing when it has it already.
    void setFocus(Control& control);

    /// What the user does. Whether a SetFocus inside the old control's LostFocus wins over the move that caused it:
    /// it does for a person, a script goes on to the control that it named.
    enum class Insist { no, yes };
    /// False when the control could not take the focus, before or after the old one's LostFocus.
    bool moveFocus(Control& control, Insist insist = Insist::no);
    /// Takes the focus off the active control: its LostFocus runs and no control has the focus, unless a SetFocus in
    /// it wins.
    void leaveFocus(Insist insist = Insist::no);
    /// Moves to the next, the previous stop of the tab order that can take the focus; stays when there is none.
    void tabForward(Insist insist = Insist::no);
    void tabBackward(Insist insist = Insist::no);

    // --- Keys ------------------------------------------------------------------------------------------------

    /// A key from the user or from code (sendKey): the form's KeyDown sees it first. Gives back what the key has
    /// become; Key::none when it was swallowed.
    Key keyDown(Key key, bool shift = false);

    /// What the shop's forms do alike in their KeyDown: Enter moves on as Tab does and is swallowed, the decimal point
    /// of the pad becomes the comma key.
    void passUsualKeys(KeyDown& key);

    /// The same, and Esc closes the form: the keys of a window beside the work.
    void passKeysOfSideWindow(KeyDown& key);

    // --- Life ------------------------------------------------------------------------------------------------

    /// Called by a toolkit when the form comes on the screen: Activate, then the first tab stop takes the focus
    /// unless a control has it.
    void activate();
    /// Raises Unload and ends the modal show. A second call does nothing.
    void unload();
    bool isUnloaded() const { return unloaded_; }
    /// Whether the user can do anything on it: enabled and not unloaded.
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
    Control* redirected_ = nullptr;  ///< where a SetFocus inside a LostFocus went
    bool leaving_ = false;           ///< a LostFocus is running
    std::vector<FormObserver*> observers_;
};

}  // namespace velmora::screen
