#pragma once
// One control of a form on the screen: its widget, kept in step with the model, and the user's actions on it.

#include <QKeyEvent>
#include <QMouseEvent>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QWidget>
#include <functional>
#include <vector>

#include "velmora/adapters/qt/key_strokes.h"
#include "velmora/platform/screen/control.h"
#include "velmora/platform/screen/layout.h"

namespace velmora::qt {

class WindowMemory;

/// What a view needs from its window.
class ViewHost {
  public:
    virtual ~ViewHost() = default;
    /// Runs the effect of a user's action on the model. Errors are shown, and the program continues.
    virtual void feed(const std::function<void()>& action) = 0;
    /// Inside feed: moves the focus to this control. False when the focus did not get there.
    virtual bool bringFocus(screen::Control& control) = 0;
    /// False while the form takes no input.
    virtual bool acceptsInput() const = 0;
    /// Shows an error raised where no box can be opened (while painting), as soon as possible.
    virtual void reportLater(std::exception_ptr error) = 0;
    /// nullptr when nothing is remembered.
    virtual WindowMemory* memory() const = 0;
};

class ControlView : public QObject {
  public:
    ControlView(ViewHost& host, screen::Control& control) : host_(host), control_(control) {}

    screen::Control& control() const { return control_; }
    /// The widget that the layout places.
    virtual QWidget& widget() = 0;
    /// The widget that takes the keyboard.
    virtual QWidget& focusTarget() { return widget(); }
    /// The widgets whose events concern this control.
    virtual std::vector<QWidget*> inputs() { return {&focusTarget()}; }

    /// Copies one property from the model to the widget.
    virtual void update(screen::Property property);
    /// Copies all properties.
    virtual void updateAll();

    /// Inside feed, after the form's KeyDown: handles the key in the control. False leaves it to the widget.
    virtual bool key(const KeyStroke& stroke) = 0;
    /// True when the control acts on a click, so that pressing the mouse does not move the focus yet.
    virtual bool actsOnClick() const { return false; }
    /// Inside feed, after a mouse press has moved the focus here. True discards the press.
    virtual bool pressed() { return false; }
    /// Identifies the target of a mouse press where the view shows several: when moving the focus changes what is under
    /// the mouse, the press is not carried out.
    virtual QString aimOf(const QMouseEvent& /*press*/) const { return {}; }
    /// Other events of the widgets; true discards the event.
    virtual bool otherEvent(QEvent& event);

    virtual void focusGained() {}
    virtual void focusLeft() {}

    /// Widgets shown and hidden together with this one: its caption, its unit.
    void addCompanion(QWidget& companion);
    /// Frames around the widget, which hide it without the view's help.
    void setEnclosingFrames(std::vector<const screen::Frame*> frames) { enclosing_ = std::move(frames); }
    /// The widget's visibility is controlled elsewhere.
    void setShownByOther() { shownByOther_ = true; }
    virtual void setAccessibleName(const QString& name) { focusTarget().setAccessibleName(name); }

  protected:
    ViewHost& host() const { return host_; }
    /// Sets the colours of text and background.
    virtual void updateColors() {}

  private:
    void updateVisible();

    ViewHost& host_;
    screen::Control& control_;
    std::vector<QPointer<QWidget>> companions_;
    std::vector<const screen::Frame*> enclosing_;
    bool shownByOther_ = false;
};

}  // namespace velmora::qt
