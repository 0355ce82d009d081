#pragma once
// One form on the screen. It renders the form's Layout, follows its properties, and passes the user's actions to the
// model: the model alone decides which control has the focus and what a key becomes.

#include <QEventLoop>
#include <QPointer>
#include <QWidget>
#include <exception>
#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

#include "velmora/adapters/qt/control_view.h"
#include "velmora/adapters/qt/layout_builder.h"
#include "velmora/platform/screen/form.h"
#include "velmora/platform/toolkit/user_actions.h"

class QScrollArea;

namespace velmora::qt {

class QtScreen;
class SketchView;
class StatusBar;

class FormWindow : public QWidget, private screen::FormObserver, private toolkit::ActionWindow, private ViewHost {
  public:
    /// The form must outlive the window.
    FormWindow(QtScreen& screen, screen::Form& form, QWidget* parent);
    ~FormWindow() override;

    /// Shows the window, activates the form and returns when the form is unloaded.
    void runModal();
    /// The initial size: what the form needs, limited to the screen.
    QSize openingSize() const;

    screen::Form& form() const { return form_; }
    /// The view of a control; nullptr when the layout does not contain it.
    ControlView* viewOf(const screen::Control& control) const;

    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool focusNextPrevChild(bool next) override;

  private:
    void controlChanged(screen::Control& control, screen::Property property) override;
    void formChanged() override;
    void focusMoved(screen::Control* control) override;
    void statusChanged() override;

    void showError(std::exception_ptr error) override;
    void moveKeyboard() override;

    void feed(const std::function<void()>& action) override;
    bool bringFocus(screen::Control& control) override;
    bool acceptsInput() const override;
    void reportLater(std::exception_ptr error) override;
    WindowMemory* memory() const override;

    void build();
    /// Sets size and place: those of the last time, or what the form needs, over the window below.
    void settlePlace();
    void keepPlace();
    void connectViews();
    void showStatus();
    /// Scrolls to the control with the focus, and to its caption where both have room.
    void scrollToFocus();
    void frameChanged(const screen::Frame& frame, screen::Property property);
    bool handleKey(ControlView* view, const QKeyEvent& event);
    bool handlePress(ControlView& view, QEvent& event);
    void handleForeignFocus(ControlView& view, Qt::FocusReason reason);

    QtScreen& screen_;
    screen::Form& form_;
    toolkit::UserActions actions_;
    QWidget* content_ = nullptr;
    QScrollArea* scroll_ = nullptr;
    StatusBar* status_ = nullptr;
    bool working_ = false;  ///< the status line tells of work under way
    std::vector<std::unique_ptr<ControlView>> views_;
    std::unordered_map<const screen::Control*, ControlView*> viewByControl_;
    /// Further views of a label that captions several fields, only one of which is shown at a time.
    std::unordered_map<const screen::Control*, std::vector<ControlView*>> furtherViews_;
    std::unordered_map<const QObject*, ControlView*> viewByWidget_;
    std::unordered_map<const screen::Control*, std::vector<SketchView*>> sketchesByLabel_;
    std::vector<Turn> turns_;
    ControlView* focused_ = nullptr;
    QEventLoop* loop_ = nullptr;
    bool syncing_ = false;
    int actionsUnderWay_ = 0;
};

}  // namespace velmora::qt
