#pragma once
// One control of a form on the screen: its widget, kept true to the model, and what the user does with it.

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

/// What a view asks of the window it stands in.
class ViewHost {
  public:
    virtual ~ViewHost() = default;
    /// Runs what a user's action does to the model. An error of it is shown, and the program goes on.
    virtual void feed(const std::function<void()>& action) = 0;
    /// Inside feed: the user turns to this control. False when the focus did not get there.
    virtual bool bringFocus(screen::Control& control) = 0;
    /// False while the form takes no input.
    virtual bool acceptsInput() const = 0;
    /// Shows an error that arose where no box can be opened (while painting), as soon as one can.
    virtual void reportLater(std::exception_ptr error) = 0;
};

class ControlView : public QObject {
  public:
    ControlView(ViewHost& host, screen::Control& control) : host_(host), control_(control) {}

    screen::Control& control() const { return control_; }
    /// What the layout places.
    virtual QWidget& widget() = 0;
    /// What takes the keyboard.
    virtual QWidget& focusTarget() { return widget(); }
    /// The widgets whose events concern this control.
    virtual std::vector<QWidget*> inputs() { return {&focusTarget()}; }

    /// Brings one property over from the model.
    virtual void update(screen::Property property);
    /// Brings everything over.
    virtual void updateAll();

    /// Inside feed, after the form has seen the key: what the control does with it. False leaves it to the widget.
    virtual bool key(const KeyStroke& stroke) = 0;
    /// True when a click is what the control waits for, so that pressing the mouse does not move the focus yet.
    virtual bool actsOnClick() const { return false; }
    /// Inside feed, after a mouse press has brought the focus here. True swallows the press.
    virtual bool pressed() { return false; }
    /// What a press of the mouse is meant for, where the view shows several things: a press that brings the focus, and
    /// by that changes what stands under the mouse, is not carried out.
    virtual QString aimOf(const QMouseEvent& /*press*/) const { return {}; }
    /// Other events of its widgets; true swallows.
    virtual bool otherEvent(QEvent& event);

    virtual void focusGained() {}
    virtual void focusLeft() {}

    /// Widgets that come and go with this one: its caption, its unit.
    void addCompanion(QWidget& companion);
    /// Frames around the widget that hide it by themselves.
    void setEnclosingFrames(std::vector<const screen::Frame*> frames) { enclosing_ = std::move(frames); }
    /// Something else decides whether the widget is seen.
    void setShownByOther() { shownByOther_ = true; }
    virtual void setAccessibleName(const QString& name) { focusTarget().setAccessibleName(name); }

  protected:
    ViewHost& host() const { return host_; }
    /// The colours of text and background.
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
