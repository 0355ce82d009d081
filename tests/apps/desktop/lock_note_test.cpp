#include "velmora/apps/desktop/lock_note.h"

#include <QApplication>
#include <QLabel>
#include <QTimer>
#include <functional>
#include <memory>

#include <gtest/gtest.h>

#include "velmora/adapters/qt/form_window.h"
#include "velmora/adapters/qt/status_bar.h"
#include "velmora/adapters/qt/text.h"
#include "velmora/adapters/sqlite/database.h"

#include "support/temporary_folder.h"

namespace velmora::desktop {
namespace {

class LockNoteTest : public ::testing::Test {
  protected:
    struct Told : screen::Form {
        Told() : Form("frmTold") {
            box.setHint("Código");
            setLayout(screen::layout::field("Código", box, 8));
            setTabOrder({&box});
        }
        screen::TextBox box{*this, "box"};
    };

    /// Shows the form and runs the user's part once its window stands.
    void play(screen::Form& shown, const std::function<void()>& user) {
        bool played = false;
        QTimer::singleShot(0, [&] {
            user();
            played = true;
            shown.unload();
        });
        screen_->showModal(shown);
        EXPECT_TRUE(played);
    }
    std::string message() const {
        return qt::fromQt(dynamic_cast<qt::StatusPart&>(*screen_->top()->findChild<QLabel*>("message")).wholeText());
    }

    int count_ = 1;
    char name_[13] = "test_desktop";
    char* arguments_[2] = {name_, nullptr};
    QApplication application_{count_, arguments_};
    const std::unique_ptr<qt::QtScreen> screen_ = std::make_unique<qt::QtScreen>();
    support::TemporaryFolder folder;
    Told form;
};

TEST_F(LockNoteTest, AFormInWhichASaveWaitsForAnotherUserSaysSo) {
    LockNote note(*screen_);
    const std::string path = folder.file("taller.db");
    const auto other = sqlite::openDatabase(path);
    other->execute("CREATE TABLE T (n int)");
    std::string shown;
    sqlite::Options options;
    options.waitingAfter = std::chrono::milliseconds(10);
    options.waiting = [&](bool waits) {
        note.tell(waits);
        if (waits) {
            shown = message();
            other->commitTrans();
        }
    };
    const auto connection = sqlite::openDatabase(path, std::move(options));
    int asked = 0;
    form.status().setStateSource([&] {
        ++asked;
        return screen::RecordState{};
    });
    play(form, [&] {
        other->beginTrans();
        const int before = asked;
        connection->execute("insert into T (n) values (1)");
        EXPECT_EQ(asked, before) << "the form may read the database for its state, which is the one that waits";
        EXPECT_EQ(shown, "Esperando a otro usuario…");
        EXPECT_EQ(message(), "Código");
    });
}

TEST_F(LockNoteTest, WhatTheFormItselfTellsStays) {
    LockNote note(*screen_);
    play(form, [&] {
        form.status().tellWork("Imprimiendo…");
        note.tell(true);
        EXPECT_EQ(message(), "Imprimiendo…");
        note.tell(false);
        EXPECT_EQ(message(), "Imprimiendo…");
    });
    note.tell(true);
    note.tell(false);
}

}  // namespace
}  // namespace velmora::desktop
