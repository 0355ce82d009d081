#pragma once
// One control of a form on the screen: kept in step with the model, and the user's actions on it.

#include <memory>
#include <string>
#include <vector>

#include "velmora/adapters/win32/key_strokes.h"
#include "velmora/adapters/win32/part.h"
#include "velmora/platform/screen/layout.h"

namespace velmora::win32 {

class ControlView : public Part {
  public:
    ControlView(ViewHost& host, screen::Control& control) : Part(host), control_(control) {}

    screen::Control& control() const { return control_; }
    /// Its windows; none for what is drawn on the page.
    virtual std::vector<HWND> windows() const { return {}; }
    /// The window that takes the keyboard; nullptr without one.
    virtual HWND focusTarget() const { return nullptr; }

    /// Copies one property from the model to the screen.
    virtual void update(screen::Property property);
    /// Copies all properties.
    virtual void updateAll();

    /// Inside feed, after the form's KeyDown: handles the key in the control. False leaves it to the window.
    virtual bool key(const KeyStroke& stroke) = 0;
    /// A key that forms do not see; true when it is used.
    virtual bool nativeKey(WPARAM /*virtualKey*/) { return false; }
    /// True while keys belong to the control alone, as to an open list.
    virtual bool ownsKeys() const { return false; }
    /// True when the control acts on a click, so that pressing the mouse does not move the focus yet.
    virtual bool actsOnClick() const { return false; }
    /// After a mouse press has moved the focus here. True discards the press.
    virtual bool pressed() { return false; }
    /// What is told beside the mouse. Errors: those of the control's explanation.
    virtual std::wstring toolTip() const;
    /// Identifies the target of a mouse press where the view shows several: when moving the focus changes what is under
    /// the mouse, the press is not carried out.
    virtual std::wstring aimOf(POINT /*press*/) const { return {}; }

    /// A message of one of its windows, after the form has let it through; a result ends the message.
    virtual std::optional<LRESULT> message(HWND /*window*/, UINT /*message*/, WPARAM /*word*/, LPARAM /*value*/) {
        return std::nullopt;
    }
    /// A control tells its parent something (WM_COMMAND).
    virtual void command(UINT /*code*/) {}
    /// The same, in the newer form (WM_NOTIFY).
    virtual LRESULT notified(const NMHDR& /*what*/) { return 0; }
    /// A control asks for its colours: sets those of the text, returns the ground. nullptr: the system's.
    virtual HBRUSH colors(HDC /*dc*/) { return nullptr; }
    virtual void drawItem(const DRAWITEMSTRUCT& /*item*/) {}

    virtual void focusGained() { repaint(); }
    virtual void focusLeft() { repaint(); }

    /// A part shown and hidden together with this one: its caption, its unit.
    void addCompanion(Part& companion) { companions_.push_back(&companion); }
    /// Frames around it, which hide it without the view's help.
    void setEnclosingFrames(std::vector<const screen::Frame*> frames) { enclosing_ = std::move(frames); }
    /// Its visibility is controlled elsewhere.
    void setShownByOther() { shownByOther_ = true; }
    /// The name for assistive technology.
    virtual void setAccessibleName(const std::wstring& name);
    const std::wstring& accessibleName() const { return accessibleName_; }

  protected:
    /// Takes part in the messages of a window; to be called once for each.
    void watch(HWND window);
    LRESULT passOn(HWND window, UINT message, WPARAM word = 0, LPARAM value = 0) const;
    bool looksEnabled() const { return toolkit::looksEnabled(control_); }
    /// The colours of text or ground have changed.
    virtual void updateColors() { repaint(); }
    /// What is painted behind it: a group's ground or the window's.
    style::Rgb surroundings() const { return enclosing_.empty() ? style::window : style::groupGround; }
    void placed() override;

  private:
    void updateVisible();

    screen::Control& control_;
    std::vector<Part*> companions_;
    std::vector<const screen::Frame*> enclosing_;
    std::vector<std::pair<HWND, std::unique_ptr<Interception>>> watched_;
    std::wstring accessibleName_;
    bool shownByOther_ = false;
};

}  // namespace velmora::win32
