#pragma once
// The controls of a form: plain properties and synchronous events. A toolkit observes the properties and reports what
// the user does.

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/platform/runtime/number_reading.h"
#include "velmora/platform/screen/event.h"
#include "velmora/platform/screen/keys.h"

namespace velmora::screen {

class Form;
class Frame;

/// A colour in the host's byte order: blue, green, red from the high byte down (0x00BBGGRR).
using Color = std::int32_t;
namespace colors {
inline constexpr Color white = 16777215;
inline constexpr Color yellow = 65535;
inline constexpr Color red = 255;
inline constexpr Color blue = 0xFF0000;
inline constexpr Color black = 0;
}  // namespace colors

/// What a control holds, for code that goes over all controls of a form.
enum class Holds {
    nothing,  ///< that such code would read or set
    text,     ///< a TextBox
    entries,  ///< a ComboBox
    caption,  ///< a Captioned but no CheckBox
    tick,     ///< a CheckBox, with its caption
};

/// The property that changed, for observers.
enum class Property {
    text,
    caption,
    enabled,
    visible,
    locked,
    backColor,
    foreColor,
    toolTip,
    hint,
    warning,
    tag,
    tabStop,
    items,
    listIndex,
    value,
    columns,
    rows,
    currentRow,
    drawing,
};

class Control {
  public:
    static constexpr int noIndex = -1;

    Control(Form& form, std::string name, int index = noIndex);
    virtual ~Control();
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    Form& form() const { return form_; }
    const std::string& name() const { return name_; }
    int index() const { return index_; }
    /// "Text1(3)" in a control array, otherwise the name.
    std::string fullName() const;

    bool enabled() const { return enabled_; }
    void setEnabled(bool enabled) { assign(enabled_, enabled, Property::enabled); }
    bool visible() const { return visible_; }
    void setVisible(bool visible) { assign(visible_, visible, Property::visible); }
    const std::string& tag() const { return tag_; }
    void setTag(std::string_view tag) { assign(tag_, std::string(tag), Property::tag); }
    const std::string& toolTip() const { return toolTip_; }
    void setToolTip(std::string_view text) { assign(toolTip_, std::string(text), Property::toolTip); }
    /// What may be entered, and what for; shown in the status line while the control has the focus.
    const std::string& hint() const { return hint_; }
    void setHint(std::string_view text) { assign(hint_, std::string(text), Property::hint); }
    /// What is wrong with the present value although it was accepted, such as a material without a price. The field has
    /// an amber border while the text is not empty; the text is shown with it and, with the focus, in the status line.
    const std::string& warning() const { return warning_; }
    void setWarning(std::string_view text) { assign(warning_, std::string(text), Property::warning); }
    Color backColor() const { return backColor_; }
    void setBackColor(Color color) { assign(backColor_, color, Property::backColor); }
    Color foreColor() const { return foreColor_; }
    void setForeColor(Color color) { assign(foreColor_, color, Property::foreColor); }
    bool tabStop() const { return tabStop_; }
    void setTabStop(bool stop) { assign(tabStop_, stop, Property::tabStop); }

    /// The name for assistive technology: the caption beside the control unless set explicitly.
    const std::string& accessibleName() const { return accessibleName_; }
    void setAccessibleName(std::string_view text) { accessibleName_ = text; }

    /// The frame that contains the control; nullptr when it is directly on the form.
    Frame* frame() const { return frame_; }
    void setFrame(Frame* frame) { frame_ = frame; }

    /// Enabled, or visible, itself and through all enclosing frames; for `isEnabled` the form must be enabled as well.
    bool isEnabled() const;
    bool isVisible() const;

    virtual Holds holds() const { return Holds::nothing; }
    /// Whether this one shows the other on itself: a sketch its labels. Such a control has no field of its own in a
    /// layout.
    virtual bool carries(const Control& /*other*/) const { return false; }

    /// True for kinds of control that can have the focus at all.
    virtual bool isFocusable() const { return false; }
    /// Focusable, enabled and visible now.
    bool canTakeFocus() const { return isFocusable() && isEnabled() && isVisible(); }
    /// Moves the focus here; error 5 when the control cannot take it.
    void setFocus();

    Event<> onGotFocus;
    Event<> onLostFocus;

    /// For calculated values: how the present value came about, in lines. Evaluated when the user asks for the tool
    /// tip, which it replaces unless it is empty. Must not change the form.
    std::function<std::string()> explanation;
    /// The user asks why the control has its value. The context menu offers it when there is a handler.
    Event<> onExplain;

  protected:
    template <typename T>
    void assign(T& slot, T value, Property property) {
        if (slot != value) {
            slot = std::move(value);
            notify(property);
        }
    }
    void notify(Property property);

  private:
    Form& form_;
    std::string name_;
    int index_;
    bool enabled_ = true;
    bool visible_ = true;
    bool tabStop_ = true;
    std::string tag_;
    std::string toolTip_;
    std::string hint_;
    std::string warning_;
    std::string accessibleName_;
    Color backColor_ = colors::white;
    Color foreColor_ = colors::black;
    Frame* frame_ = nullptr;
};

/// A text field. Setting a different text raises Change; setting the same text does nothing.
class TextBox : public Control {
  public:
    using Control::Control;
    Holds holds() const final { return Holds::text; }
    bool isFocusable() const override { return true; }

    const std::string& text() const { return text_; }
    void setText(std::string_view text);

    /// The text as a number of the language (runtime::CDbl); error 13 when it is none, 6 when it is too large. A text
    /// is parsed once, however often its number is asked for.
    double number() const { return runtime::valueOf(reading()); }
    /// True exactly when number() gives one.
    bool holdsNumber() const { return reading().outcome == runtime::Outcome::number; }
    /// Sets the default text of a number (runtime::CStr); error 6 for infinities and NaN. A number whose text has stood
    /// here since it was last set is not turned into a text again.
    void setNumber(double number);

    bool locked() const { return locked_; }
    void setLocked(bool locked) { assign(locked_, locked, Property::locked); }
    bool multiLine() const { return multiLine_; }
    void setMultiLine(bool multiLine) { multiLine_ = multiLine; }
    /// Asks the toolkit to select the whole text, so that typing replaces it.
    void selectAll();
    /// True after selectAll until the text changes or the focus leaves.
    bool allSelected() const { return selectAll_; }
    void clearSelection() { selectAll_ = false; }

    Event<> onChange;
    Event<KeyPress&> onKeyPress;
    /// The user has double-clicked the field. Not raised for a locked field.
    Event<> onDblClick;

  private:
    const runtime::Reading& reading() const {
        if (!reading_) {
            reading_ = runtime::readNumber(text_, runtime::esES);
        }
        return *reading_;
    }
    void replaceText(std::string_view text, std::optional<double> number);

    // What is known of the text; a different text drops both.
    std::string text_;
    mutable std::optional<runtime::Reading> reading_;
    std::optional<double> number_;  ///< whose default text it is; none for a text that was set as one

    bool locked_ = false;
    bool multiLine_ = false;
    bool selectAll_ = false;
};

/// A list of texts, one of which is selected. Setting the list index raises Click every time, also when the index does
/// not change.
class ComboBox : public Control {
  public:
    enum class Style { list, editable };  ///< editable: the text need not be in the list

    using Control::Control;
    Holds holds() const final { return Holds::entries; }
    bool isFocusable() const override { return true; }

    Style style() const { return style_; }
    void setStyle(Style style) { style_ = style; }

    int listCount() const { return static_cast<int>(items_.size()); }
    /// The entry at a position; "" outside the list.
    const std::string& list(int i) const;
    const std::vector<std::string>& items() const { return items_; }
    void addItem(std::string_view text);
    /// Replaces an entry's text; error 5 outside the list.
    void setList(int i, std::string_view text);
    /// Empties the list; the index becomes -1 and the text empty. Does not raise Click.
    void clear();

    int listIndex() const { return listIndex_; }
    /// -1 selects nothing. Error 380 outside the list.
    void setListIndex(int index);
    /// The text of the selected entry, or what was typed into an editable list.
    const std::string& text() const { return text_; }
    /// Selects the first entry with this text without raising Click; any other text is kept with index -1 by an
    /// editable list and refused with error 383 by a plain one.
    void setText(std::string_view text);

    /// What the user does: sets the index, which raises Click, then raises Chosen.
    void choose(int index);

    Event<> onClick;
    /// The user has chosen an entry, possibly the one already selected.
    Event<> onChosen;

  private:
    Style style_ = Style::list;
    std::vector<std::string> items_;
    int listIndex_ = -1;
    std::string text_;
};

/// A control with a text of its own.
class Captioned : public Control {
  public:
    using Control::Control;
    Holds holds() const override { return Holds::caption; }
    const std::string& caption() const { return caption_; }
    void setCaption(std::string_view caption) { assign(caption_, std::string(caption), Property::caption); }

  private:
    std::string caption_;
};

/// A check box. A change by code or by the user raises Click.
class CheckBox : public Captioned {
  public:
    using Captioned::Captioned;
    Holds holds() const final { return Holds::tick; }
    bool isFocusable() const override { return true; }
    bool checked() const { return checked_; }
    void setChecked(bool checked);

    Event<> onClick;

  private:
    bool checked_ = false;
};

class Label : public Captioned {
  public:
    using Captioned::Captioned;
};

/// Groups controls: hiding or disabling it hides or disables everything in it.
class Frame : public Captioned {
  public:
    using Captioned::Captioned;
};

/// A button. An "&" in the caption marks the mnemonic.
class Button : public Captioned {
  public:
    using Captioned::Captioned;
    bool isFocusable() const override { return true; }

    Event<> onClick;
};

/// A bar of buttons, some with a menu. Buttons are counted from 1, separators included.
class Toolbar : public Control {
  public:
    struct MenuItem {
        std::string key;
        std::string caption;
    };
    struct Item {
        std::string caption;  ///< empty for a separator
        std::vector<MenuItem> menu;
    };

    using Control::Control;
    bool isFocusable() const override { return true; }
    const std::vector<Item>& items() const { return items_; }
    void setItems(std::vector<Item> items) {
        items_ = std::move(items);
        notify(Property::items);
    }

    Event<int> onButtonClick;        ///< 1-based index of the button
    Event<std::string> onMenuClick;  ///< key of the menu item

  private:
    std::vector<Item> items_;
};

}  // namespace velmora::screen
