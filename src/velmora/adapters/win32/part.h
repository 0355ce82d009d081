#pragma once
// A part of a form's page: placed by the layout, drawn on the page or shown by windows of its own.

#include <functional>
#include <optional>
#include <string>

#include "velmora/adapters/win32/canvas.h"
#include "velmora/adapters/win32/native_window.h"
#include "velmora/adapters/win32/theme.h"
#include "velmora/platform/screen/control.h"
#include "velmora/platform/toolkit/effective_state.h"

namespace velmora::win32 {

class ControlView;

/// What a part needs from its window.
class ViewHost {
  public:
    virtual ~ViewHost() = default;
    /// Runs the effect of a user's action on the model. Errors are shown, and the program continues.
    virtual void feed(const std::function<void()>& action) = 0;
    /// Inside feed: moves the focus to this control. False when the focus did not get there.
    virtual bool bringFocus(screen::Control& control) = 0;
    /// False while the form takes no input.
    virtual bool acceptsInput() const = 0;
    /// Whether the model's focus is on this control.
    virtual bool hasFocus(const screen::Control& control) const = 0;
    /// Shows an error raised where no box can be opened (while painting), as soon as possible.
    virtual void reportLater(std::exception_ptr error) = 0;
    /// Runs work once the messages under way have been handled.
    virtual void later(std::function<void()> work) = 0;
    /// Room or visibility of a part has changed.
    virtual void arrangeLater() = 0;
    virtual void repaint(const Box& box) = 0;
    /// Messages of a window of a view that concern all kinds of control; a result ends the message.
    virtual std::optional<LRESULT> incoming(ControlView& view, HWND window, UINT message, WPARAM word,
                                            LPARAM value) = 0;
    /// A window that a view has created: its messages and keys belong to that view.
    virtual void addInput(HWND window, ControlView& view) = 0;
    /// The text beside the mouse is another one now.
    virtual void forgetToolTip() = 0;
    virtual const Theme& theme() const = 0;
    /// The parent of all windows of views.
    virtual HWND page() const = 0;
};

class Part : public toolkit::PlacedPart {
  public:
    explicit Part(ViewHost& host) : host_(host) {}
    Part(const Part&) = delete;
    Part& operator=(const Part&) = delete;

    bool takesRoom() const override { return state_.shown || state_.keepsRoom; }
    bool place(const toolkit::Area& area, bool shown) final;

    /// Its own state; takes effect with the next arrangement.
    void setState(const toolkit::WidgetState& state);
    const Box& box() const { return box_; }
    bool isShown() const { return shown_; }

    /// Draws on the page, below the windows.
    virtual void draw(Canvas& /*canvas*/) {}
    /// Scale or fonts have changed.
    virtual void useTheme() {}

  protected:
    ViewHost& host() const { return host_; }
    const Theme& theme() const { return host_.theme(); }
    /// After box or visibility have changed.
    virtual void placed() {}
    void repaint() const { host_.repaint(box_); }

  private:
    ViewHost& host_;
    Box box_;
    bool shown_ = false;
    toolkit::WidgetState state_;
};

/// A fixed text: the caption or the unit of a field.
class TextPart : public Part {
  public:
    enum class Weight { normal, title };

    TextPart(ViewHost& host, std::wstring text, Weight weight = Weight::normal)
        : Part(host), text_(std::move(text)), weight_(weight) {}

    const std::wstring& text() const { return text_; }
    toolkit::Needs needs() const override;
    bool fillsWidth() const override { return true; }
    bool fillsHeight() const override { return false; }
    void draw(Canvas& canvas) override;

  private:
    HFONT font() const { return weight_ == Weight::title ? theme().titleFont() : theme().font(); }

    std::wstring text_;
    Weight weight_;
};

}  // namespace velmora::win32
