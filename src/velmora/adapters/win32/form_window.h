#pragma once
// One form on the screen. It renders the form's Layout, follows its properties, and passes the user's actions to the
// model: the model alone decides which control has the focus and what a key becomes.

#include <exception>
#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

#include "velmora/adapters/win32/control_view.h"
#include "velmora/adapters/win32/layout_builder.h"
#include "velmora/platform/screen/form.h"
#include "velmora/platform/toolkit/layout_places.h"
#include "velmora/platform/toolkit/user_actions.h"

namespace velmora::win32 {

class PageScroller;
class SketchView;
class StatusStrip;
class ToolTips;
class Win32Screen;

class FormWindow : public NativeWindow,
                   private screen::FormObserver,
                   private toolkit::ActionWindow,
                   private toolkit::Distances,
                   private ViewHost {
  public:
    /// The form must outlive the window. `dpi` 0: the scale of the monitor.
    FormWindow(Win32Screen& screen, screen::Form& form, HWND owner, int dpi = 0);
    ~FormWindow() override;

    /// Shows the window, activates the form and returns when the form is unloaded.
    void runModal();
    /// The initial inner size: what the form needs, limited to the screen.
    SIZE openingSize();

    screen::Form& form() const { return form_; }
    /// The view of a control; nullptr when the layout does not contain it.
    ControlView* viewOf(const screen::Control& control) const;
    const std::vector<std::unique_ptr<Part>>& parts() const { return parts_; }
    const Theme& theme() const override { return *theme_; }
    /// The window that holds the controls; it is moved when the form is scrolled.
    HWND page() const override;
    /// Carries out the work that waits for the end of the messages under way, the arrangement included.
    void settle();
    /// Sees a message before it is translated; true when it is used up.
    bool filter(const MSG& message);

  protected:
    LRESULT receive(UINT message, WPARAM word, LPARAM value) override;

  private:
    class Page;

    void controlChanged(screen::Control& control, screen::Property property) override;
    void formChanged() override;
    void focusMoved(screen::Control* control) override;
    void statusChanged() override;

    void showError(std::exception_ptr error) override;
    void moveKeyboard() override;

    int pixels(toolkit::Spacing spacing) const override;
    toolkit::GroupEdges edgesOf(const screen::Layout& group) const override;

    void feed(const std::function<void()>& action) override;
    bool bringFocus(screen::Control& control) override;
    bool acceptsInput() const override;
    bool hasFocus(const screen::Control& control) const override;
    void reportLater(std::exception_ptr error) override;
    void later(std::function<void()> work) override;
    void arrangeLater() override;
    void repaint(const Box& box) override;
    std::optional<LRESULT> incoming(ControlView& view, HWND window, UINT message, WPARAM word, LPARAM value) override;
    void addInput(HWND window, ControlView& view) override;
    void forgetToolTip() override;

    void build();
    void connectViews();
    void frameChanged(const screen::Frame& frame, screen::Property property);
    void useDpi(int dpi, const RECT& wanted);
    void arrange();
    void showFocused();
    void showStatus();
    std::wstring toolTipOf(HWND window);
    /// nullopt: the system answers.
    std::optional<LRESULT> receiveOnPage(UINT message, WPARAM word, LPARAM value);
    void paintPage();
    ControlView* viewOfWindow(HWND window) const;
    bool handlePress(ControlView& view, UINT message, LPARAM value);
    bool handleKey(ControlView* view, WPARAM virtualKey);
    bool handleCharacter(ControlView* view, WPARAM unit);
    bool handleMnemonic(WPARAM unit);
    bool route(ControlView* view, const KeyStroke& stroke);
    void handleForeignFocus(ControlView& view);

    Win32Screen& screen_;
    screen::Form& form_;
    toolkit::UserActions actions_;
    std::unique_ptr<Theme> theme_;
    std::unique_ptr<Page> page_;
    std::unique_ptr<StatusStrip> status_;
    std::unique_ptr<PageScroller> scroller_;
    std::unique_ptr<ToolTips> toolTips_;
    std::unordered_map<HWND, ControlView*> viewByWindow_;
    std::vector<std::unique_ptr<Part>> parts_;
    std::unique_ptr<toolkit::LayoutPlaces> places_;
    std::vector<ControlView*> views_;
    std::unordered_map<const screen::Control*, ControlView*> viewByControl_;
    /// Further views of a label that captions several fields, only one of which is shown at a time.
    std::unordered_map<const screen::Control*, std::vector<ControlView*>> furtherViews_;
    std::unordered_map<const screen::Control*, std::vector<SketchView*>> sketchesByLabel_;
    std::vector<std::function<void()>> waiting_;
    CharacterPairs characters_;
    ControlView* focused_ = nullptr;
    ControlView* clicking_ = nullptr;  ///< a control that acts on a click, while the mouse is pressed on it
    bool dirty_ = true;
    bool arranging_ = false;
    bool syncing_ = false;
    int actionsUnderWay_ = 0;
};

}  // namespace velmora::win32
