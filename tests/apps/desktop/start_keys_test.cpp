#include "velmora/apps/desktop/start_keys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTimer>
#include <QWidget>
#include <functional>

#include <gmock/gmock.h>

#include "velmora/adapters/qt/form_window.h"
#include "velmora/adapters/session/stand_in_session.h"
#include "velmora/adapters/sqlite/database.h"
#include "velmora/data/new_database.h"

#include "support/no_services.h"
#include "support/stopped_clock.h"

namespace velmora::desktop {
namespace {

int startArgumentCount = 1;
char startProgram[] = "test";
char* startArguments[] = {startProgram, nullptr};

/// The start window on a screen, with proposals 1 to 5.
class StartKeysTest : public ::testing::Test {
  protected:
    StartKeysTest() {
        data::createDatabase(*database);
        for (int i = 0; i < 5; ++i) {
            database->execute("INSERT INTO DPI (DPI_RefCli) VALUES (N'pieza')");
        }
        vmora.MyBd(&session);
    }
    /// The user does this in the window and closes it.
    void inWindow(const std::function<void(StartForm&)>& user) {
        StartForm form(desk, vmora, session, nullptr);
        const StartKeys keys(screen, form);
        QTimer::singleShot(0, [&] {
            user(form);
            form.unload();
        });
        screen.showModal(form);
    }
    void press(int key, const char* text = "") {
        ASSERT_NE(screen.top()->focusWidget(), nullptr);
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, QString::fromUtf8(text));
        QApplication::sendEvent(screen.top()->focusWidget(), &event);
    }
    static std::string current(StartForm& form) {
        return form.list().cellText(form.list().recordset().position().value_or(99), 0);
    }

    QApplication application{startArgumentCount, startArguments};
    support::StoppedClock clock;
    std::unique_ptr<sql::Connection> database = sqlite::openDatabase(":memory:");
    adapters::StandInSession session{*database};
    qt::QtScreen screen;
    support::NoServices services;
    components::ComponentFactory components;
    platform::Desk desk{screen, components, services, clock};
    shell::VMORA vmora{desk};
};

TEST_F(StartKeysTest, ArrowsInTheSearchBoxMoveThroughTheList) {
    inWindow([&](StartForm& form) {
        press(Qt::Key_Down);
        press(Qt::Key_Down);
        EXPECT_EQ(current(form), "000003");
        press(Qt::Key_Up);
        EXPECT_EQ(current(form), "000004");
        press(Qt::Key_PageDown);
        EXPECT_EQ(current(form), "000001");
        EXPECT_EQ(form.activeControl(), &form.searchBox());
    });
}

TEST_F(StartKeysTest, WhatIsTypedInTheListGoesToTheSearchBox) {
    inWindow([&](StartForm& form) {
        form.moveFocus(form.list());
        press(Qt::Key_4, "4");
        EXPECT_EQ(form.searchBox().text(), "4");
        EXPECT_EQ(form.activeControl(), &form.searchBox());
        EXPECT_EQ(current(form), "000004");
        press(Qt::Key_Backspace, "\b");
        EXPECT_EQ(form.searchBox().text(), "");
    });
}

TEST_F(StartKeysTest, AWindowAboveKeepsItsKeys) {
    inWindow([&](StartForm& form) {
        screen::Form above("frmArriba");
        screen::TextBox box(above, "txt");
        above.setLayout(screen::layout::plain(box));
        above.setTabOrder({&box});
        QTimer::singleShot(0, [&] {
            press(Qt::Key_Down);
            above.unload();
        });
        screen.showModal(above);
        EXPECT_EQ(current(form), "000005");
    });
}

}  // namespace
}  // namespace velmora::desktop
