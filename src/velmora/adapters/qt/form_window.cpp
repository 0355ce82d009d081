#include "velmora/adapters/qt/form_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLayout>
#include <QScreen>
#include <QScrollArea>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "velmora/adapters/qt/explanations.h"
#include "velmora/adapters/qt/qt_screen.h"
#include "velmora/adapters/qt/sketch_view.h"
#include "velmora/adapters/qt/status_bar.h"
#include "velmora/adapters/qt/text.h"
#include "velmora/adapters/qt/theme.h"
#include "velmora/adapters/qt/window_memory.h"
#include "velmora/platform/screen/close_request.h"
#include "velmora/platform/toolkit/effective_state.h"
#include "velmora/platform/toolkit/key_routing.h"
#include "velmora/platform/toolkit/layout_nature.h"

namespace velmora::qt {

namespace {

constexpr QSize workingSize{1280, 800};
constexpr int titleBarRoom = 32;

QList<QRect> availableScreens() {
    QList<QRect> rooms;
    for (const QScreen* screen : QGuiApplication::screens()) {
        rooms.append(screen->availableGeometry());
    }
    return rooms;
}

}  // namespace

FormWindow::FormWindow(QtScreen& screen, screen::Form& form, QWidget* parent)
    : QWidget(parent, Qt::Window), screen_(screen), form_(form), actions_(form, *this) {
    setWindowModality(Qt::ApplicationModal);
    setWindowTitle(toQt(form.caption()));
    build();
    form_.addObserver(*this);
}

FormWindow::~FormWindow() {
    form_.removeObserver(*this);
}

void FormWindow::build() {
    content_ = new QWidget;
    LayoutBuilder builder(*this, *content_);
    QLayout* layout = builder.build(form_.layout());
    layout->setContentsMargins(theme::group, theme::group, theme::group, theme::group);
    content_->setLayout(layout);
    views_ = builder.takeViews();
    turns_ = builder.takeTurns();

    scroll_ = new QScrollArea(this);
    scroll_->setFrameShape(QFrame::NoFrame);
    scroll_->setWidgetResizable(true);
    scroll_->setFocusPolicy(Qt::NoFocus);
    scroll_->setWidget(content_);
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->setSpacing(0);
    whole->addWidget(scroll_);
    status_ = new StatusBar(this);
    whole->addWidget(status_);
    connectViews();
    showStatus();
}

void FormWindow::connectViews() {
    for (const auto& view : views_) {
        if (!viewByControl_.emplace(&view->control(), view.get()).second) {
            furtherViews_[&view->control()].push_back(view.get());
        }
        for (QWidget* input : view->inputs()) {
            viewByWidget_.emplace(input, view.get());
            input->installEventFilter(this);
        }
        if (auto* sketch = dynamic_cast<SketchView*>(view.get())) {
            for (const screen::Sketch::PlacedLabel& label : sketch->sketch().labels()) {
                sketchesByLabel_[label.box].push_back(sketch);
            }
        }
        view->updateAll();
    }
    for (const Turn& turn : turns_) {
        turn.update();
    }
}

ControlView* FormWindow::viewOf(const screen::Control& control) const {
    const auto found = viewByControl_.find(&control);
    return found == viewByControl_.end() ? nullptr : found->second;
}

QSize FormWindow::openingSize() const {
    const QSize room = QWidget::screen()->availableSize() - QSize(0, titleBarRoom);
    const bool large = toolkit::growsDownward(form_.layout());
    QSize size = content_->layout()->totalSizeHint().expandedTo(content_->layout()->totalMinimumSize());
    if (large && size.height() > workingSize.height() * 3 / 4) {
        size = size.expandedTo(workingSize);
    }
    size.rheight() += status_->sizeHint().height();
    return size.boundedTo(room);
}

void FormWindow::runModal() {
    if (form_.isUnloaded()) {
        return;
    }
    settlePlace();
    show();
    // The needed size is known only after fonts and margins have been taken from the style, that is, once the window is
    // shown.
    settlePlace();
    activateWindow();
    QEventLoop loop;
    loop_ = &loop;
    feed([this] { form_.activate(); });
    if (!form_.isUnloaded()) {
        loop.exec();
    }
    loop_ = nullptr;
    keepPlace();
    hide();
}

void FormWindow::settlePlace() {
    const auto kept = memory() != nullptr ? memory()->placeOf(toQt(form_.name())) : std::nullopt;
    if (const auto shown = kept ? whollyShown(kept->area, availableScreens()) : std::nullopt) {
        resize(shown->size());
        move(shown->topLeft());
        setWindowState(kept->maximized ? Qt::WindowMaximized : Qt::WindowNoState);
        return;
    }
    resize(openingSize());
    if (parentWidget() != nullptr) {
        // Centred on its parent, also where no window manager places it.
        QRect place = rect();
        place.moveCenter(parentWidget()->frameGeometry().center());
        move(within(place, QWidget::screen()->availableGeometry()).topLeft());
    }
}

void FormWindow::keepPlace() {
    if (memory() == nullptr) {
        return;
    }
    const bool large = isMaximized();
    const QPoint frame = pos() - geometry().topLeft();
    const QRect area = large ? normalGeometry().translated(frame) : QRect(pos(), size());
    memory()->keepPlace(toQt(form_.name()), {.area = area, .maximized = large});
}

WindowMemory* FormWindow::memory() const {
    return screen_.memory();
}

// --- Changes of the model -------------------------------------------------------------------------------------

void FormWindow::controlChanged(screen::Control& control, screen::Property property) {
    if (ControlView* view = viewOf(control)) {
        view->update(property);
    }
    if (const auto further = furtherViews_.find(&control); further != furtherViews_.end()) {
        for (ControlView* view : further->second) {
            view->update(property);
        }
    }
    const bool toldByStatus = property == screen::Property::hint || property == screen::Property::warning;
    if (toldByStatus && &control == form_.activeControl()) {
        showStatus();
    }
    if (const auto sketches = sketchesByLabel_.find(&control); sketches != sketchesByLabel_.end()) {
        for (SketchView* sketch : sketches->second) {
            sketch->labelChanged();
        }
    }
    if (const auto* frame = dynamic_cast<const screen::Frame*>(&control)) {
        frameChanged(*frame, property);
    }
    if (property == screen::Property::visible) {
        for (const Turn& turn : turns_) {
            turn.update();
        }
    }
}

void FormWindow::frameChanged(const screen::Frame& frame, screen::Property property) {
    if (property != screen::Property::visible && property != screen::Property::enabled) {
        return;
    }
    for (const auto& view : views_) {
        if (toolkit::standsIn(view->control(), frame)) {
            view->update(property);
        }
    }
}

void FormWindow::formChanged() {
    setWindowTitle(toQt(form_.caption()));
    if (form_.isUnloaded() && loop_ != nullptr) {
        loop_->quit();
    }
}

void FormWindow::focusMoved(screen::Control* control) {
    ControlView* next = control != nullptr ? viewOf(*control) : nullptr;
    ControlView* last = std::exchange(focused_, next);
    if (last != nullptr) {
        last->focusLeft();
    }
    moveKeyboard();
    if (next != nullptr) {
        next->focusGained();
        scrollToFocus();
    }
    showStatus();
}

// What is under way is painted at once: the program may be waiting without letting events through. The state is not
// asked then, because the database itself may be what waits.
void FormWindow::statusChanged() {
    const bool working = !form_.status().work().empty();
    const bool worked = std::exchange(working_, working);
    if (!working && !worked) {
        showStatus();
        return;
    }
    status_->showMessage(toolkit::messageOf(form_));
    status_->repaint();
}

// The state is asked of the form, which may read the database: an error is shown like that of any other event.
void FormWindow::showStatus() {
    try {
        status_->show(toolkit::statusTextOf(form_));
    } catch (...) {
        reportLater(std::current_exception());
    }
}

void FormWindow::scrollToFocus() {
    constexpr int margin = 2 * theme::group;
    const QWidget& widget = focused_->widget();
    const QPoint middle = widget.mapTo(content_, widget.rect().center());
    scroll_->ensureVisible(middle.x(), middle.y(), widget.width() / 2 + margin, widget.height() / 2 + margin);
}

// --- Actions of the user --------------------------------------------------------------------------------------

void FormWindow::showError(std::exception_ptr error) {
    screen_.showError(error);
}

void FormWindow::feed(const std::function<void()>& action) {
    ++actionsUnderWay_;
    actions_.run(action);
    --actionsUnderWay_;
    if (actionsUnderWay_ == 0) {
        showStatus();
        screen_.actionEnded();
    }
}

bool FormWindow::bringFocus(screen::Control& control) {
    return actions_.turnTo(control);
}

bool FormWindow::acceptsInput() const {
    return form_.takesInput();
}

void FormWindow::reportLater(std::exception_ptr error) {
    QTimer::singleShot(0, this, [this, error] { screen_.showError(error); });
}

void FormWindow::moveKeyboard() {
    if (QApplication::activePopupWidget() != nullptr) {
        return;
    }
    QWidget* target = focused_ != nullptr && focused_->focusTarget().isEnabled() ? &focused_->focusTarget() : this;
    syncing_ = true;
    if (focusWidget() != target || !target->hasFocus()) {
        target->setFocus(Qt::OtherFocusReason);
    }
    syncing_ = false;
}

bool FormWindow::focusNextPrevChild(bool) {
    return false;
}

bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
    const auto found = viewByWidget_.find(watched);
    if (found == viewByWidget_.end()) {
        return QWidget::eventFilter(watched, event);
    }
    ControlView& view = *found->second;
    switch (event->type()) {
        case QEvent::KeyPress:
            return handleKey(&view, static_cast<QKeyEvent&>(*event)) || view.otherEvent(*event);
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            return handlePress(view, *event);
        case QEvent::FocusIn:
            handleForeignFocus(view, static_cast<QFocusEvent*>(event)->reason());
            return false;
        case QEvent::ToolTip:
            return showExplanation(*this, view.control(), static_cast<const QHelpEvent&>(*event),
                                   static_cast<QWidget&>(*watched));
        case QEvent::ContextMenu:
        case QEvent::Wheel:
        case QEvent::Drop:
        case QEvent::InputMethod:
            return !acceptsInput() || view.otherEvent(*event);
        default:
            return false;
    }
}

bool FormWindow::handlePress(ControlView& view, QEvent& event) {
    if (!acceptsInput()) {
        return true;
    }
    if (view.actsOnClick()) {
        return false;
    }
    screen::Control& control = view.control();
    const bool hadFocus = form_.activeControl() == &control;
    const int boxesBefore = screen_.boxesShown();
    const auto& press = static_cast<QMouseEvent&>(event);
    const QString aim = view.aimOf(press);
    bool arrived = false;
    feed([&] { arrived = bringFocus(control); });
    // Differs D-176: leaving a field may fill a grid with other rows: a press on a row, or on the button in its cell,
    // does nothing when another row is there by then.
    if (!arrived || form_.activeControl() != &control || screen_.boxesShown() != boxesBefore ||
        view.aimOf(press) != aim) {
        return true;
    }
    return (!hadFocus && view.pressed()) || view.otherEvent(event);
}

// Focus set by other means, such as assistive technology, is an action of the user like any other.
void FormWindow::handleForeignFocus(ControlView& view, Qt::FocusReason reason) {
    const bool ofWindow =
        reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason;
    if (syncing_ || ofWindow || form_.activeControl() == &view.control()) {
        return;
    }
    QTimer::singleShot(0, this, [this, control = &view.control()] { feed([&] { bringFocus(*control); }); });
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
    if (!handleKey(nullptr, *event)) {
        QWidget::keyPressEvent(event);
    }
}

bool FormWindow::handleKey(ControlView* view, const QKeyEvent& event) {
    if (!acceptsInput()) {
        return true;
    }
    const KeyStroke stroke = strokeOf(event);
    if (stroke.key == screen::Key::none) {
        return false;
    }
    if (stroke.key == screen::Key::f1 && stroke.shift) {
        feed([this] { screen_.showKeys(form_); });
        return true;
    }
    bool used = true;
    feed([&] {
        used = toolkit::routeKey(form_, stroke,
                                 [&](const KeyStroke& turned) { return view == nullptr || view->key(turned); });
    });
    return used;
}

void FormWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (acceptsInput()) {
        feed([this] { screen::requestClose(form_); });
    }
}

}  // namespace velmora::qt
