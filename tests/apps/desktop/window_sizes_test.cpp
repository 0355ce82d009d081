// Every window of the program on small and large screens, drawn with the real fonts at 100 %.

#include <QApplication>
#include <QLayout>
#include <QScreen>
#include <QScrollArea>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "velmora/adapters/qt/form_window.h"
#include "velmora/adapters/qt/qt_screen.h"
#include "velmora/adapters/qt/qt_services.h"
#include "velmora/apps/desktop/picture_forms.h"
#include "velmora/apps/desktop/workshop.h"
#include "velmora/apps/engines/known_engines.h"
#include "velmora/apps/stand_ins/stand_ins.h"
#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/screen/places.h"
#include "velmora/platform/screen/sketch.h"

namespace velmora::desktop {
namespace {

constexpr int titleBar = 32;
constexpr int statusLine = 24;
constexpr int sides = 4;
constexpr QSize smallest{1280, 720};
constexpr int leastHeightOfMainForm = 660;

class WindowSizes : public ::testing::Test {
  protected:
    WindowSizes() { stand_ins::registerStandIns(components_, screen_, services_, clock_); }

    std::vector<WindowPicture> windows() { return windowPictures(workshop_->session(), desk_); }

    static bool isMainForm(const WindowPicture& picture) { return picture.name.starts_with("propuesta_"); }

    /// A shown window of a form.
    struct Shown {
        std::unique_ptr<screen::Form> form;
        std::unique_ptr<qt::FormWindow> window;

        QSize least() const { return window->findChild<QScrollArea*>()->widget()->layout()->totalMinimumSize(); }
        int statusHeight() const { return window->findChild<QWidget*>("status")->sizeHint().height(); }
        QSize sizeOf(const screen::Control& control) const { return window->viewOf(control)->widget().size(); }
        void resize(QSize size) const {
            window->resize(size);
            QApplication::processEvents();
        }
    };
    Shown show(const WindowPicture& picture) {
        Shown shown{.form = picture.make(), .window = nullptr};
        shown.window = std::make_unique<qt::FormWindow>(screen_, *shown.form, nullptr);
        shown.window->setAttribute(Qt::WA_DontShowOnScreen);
        shown.window->show();
        QApplication::processEvents();
        return shown;
    }
    template <typename Kind>
    static std::vector<const Kind*> shownIn(const Shown& shown) {
        std::vector<const Kind*> found;
        for (const screen::Control* control : shown.form->controls()) {
            const auto* wanted = dynamic_cast<const Kind*>(control);
            const qt::ControlView* view = shown.window->viewOf(*control);
            if (wanted != nullptr && view != nullptr && screen::isSeen(*control)) {
                found.push_back(wanted);
            }
        }
        return found;
    }

  private:
    int count_ = 1;
    char name_[13] = "test_desktop";
    char* arguments_[2] = {name_, nullptr};
    QApplication application_{count_, arguments_};
    system::SystemClock clock_;
    qt::QtScreen screen_;
    qt::QtServices services_;
    components::ComponentFactory components_;
    std::unique_ptr<Workshop> workshop_ = openWorkshop(engines::knownEngines(clock_), ":memory:", clock_);
    platform::Desk desk_{screen_, components_, services_, clock_};
};

TEST_F(WindowSizes, EveryFormFitsASmallScreenWithItsFrameAndStatusLine) {
    const QSize room = smallest - QSize(sides, titleBar + statusLine + sides);
    for (const WindowPicture& picture : windows()) {
        const Shown shown = show(picture);
        const QSize least = shown.least();
        EXPECT_LE(shown.statusHeight(), statusLine) << picture.name;
        EXPECT_LE(least.width(), room.width()) << picture.name;
        EXPECT_LE(least.height(), room.height()) << picture.name;
        if (isMainForm(picture)) {
            EXPECT_LT(least.height() + statusLine, leastHeightOfMainForm) << picture.name;
        }
    }
}

TEST_F(WindowSizes, OnALargeScreenTheRoomOfTheMainFormGoesToTheDrawingAndTheHistory) {
    for (const WindowPicture& picture : windows()) {
        if (!isMainForm(picture)) {
            continue;
        }
        const Shown shown = show(picture);
        const auto sketches = shownIn<screen::Sketch>(shown);
        const auto grids = shownIn<screen::DataGrid>(shown);
        ASSERT_EQ(sketches.size(), 1U) << picture.name;
        ASSERT_EQ(grids.size(), 1U) << picture.name;
        shown.resize({1280, 680});
        const QSize sketch = shown.sizeOf(*sketches.front());
        const QSize history = shown.sizeOf(*grids.front());
        shown.resize({1920, 1020});
        EXPECT_GE(shown.sizeOf(*sketches.front()).width() - sketch.width(), 400) << picture.name;
        EXPECT_GE(shown.sizeOf(*sketches.front()).height() - sketch.height(), 80) << picture.name;
        EXPECT_GE(shown.sizeOf(*grids.front()).width() - history.width(), 400) << picture.name;
        EXPECT_GE(shown.sizeOf(*grids.front()).height() - history.height(), 150) << picture.name;
    }
}

TEST_F(WindowSizes, AChildOpensAtTheSizeOfWhatItHolds) {
    for (const WindowPicture& picture : windows()) {
        if (isMainForm(picture) || picture.name == "seguimiento") {
            continue;
        }
        const Shown shown = show(picture);
        const QSize hint = shown.window->findChild<QScrollArea*>()->widget()->layout()->totalSizeHint();
        const QSize room = shown.window->screen()->availableSize();
        const QSize wanted = hint.expandedTo(shown.least()) + QSize(0, shown.statusHeight());
        EXPECT_EQ(shown.window->openingSize(), wanted.boundedTo(room - QSize(0, titleBar))) << picture.name;
    }
}

}  // namespace
}  // namespace velmora::desktop
