#include "velmora/apps/desktop/draft_watch.h"

#include <QApplication>
#include <QElapsedTimer>
#include <fstream>
#include <functional>
#include <iterator>

#include <gmock/gmock.h>

#include "velmora/adapters/session/stand_in_session.h"
#include "velmora/adapters/sqlite/database.h"
#include "velmora/data/new_database.h"
#include "velmora/proposal/frm_bercial_pinones.h"

#include "support/no_services.h"
#include "support/temporary_folder.h"

namespace velmora::desktop {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

int countOfArguments = 1;
char nameOfProgram[] = "test";
char* argumentsOfProgram[] = {nameOfProgram, nullptr};

class DraftWatchTest : public ::testing::Test {
  protected:
    DraftWatchTest() {
        data::createDatabase(*database);
        data::fillDemo(*database, clock.now());
        screen.onActionEnded([this] { watch.actionEnded(); });
    }
    /// What the file of this run holds; empty without one.
    std::string written() const {
        for (const std::string& name : folder.files()) {
            if (name.find(".borrador-") != std::string::npos && !name.ends_with(".vivo")) {
                std::ifstream file(folder.path() / name);
                return {std::istreambuf_iterator<char>(file), {}};
            }
        }
        return {};
    }
    static void wait(std::chrono::milliseconds time) {
        QElapsedTimer elapsed;
        for (elapsed.start(); elapsed.elapsed() < time.count();) {
            QApplication::processEvents(QEventLoop::AllEvents, 20);
        }
    }
    void type(proposal::frmBercialPiñones& form, int field, const char* text) {
        auto& box = form.fields().Text1(field);
        form.moveFocus(box);
        box.setText(text);
        watch.actionEnded();
    }
    /// Shows the form; the user does this and closes it.
    void show(proposal::frmBercialPiñones& form, const std::function<void()>& user) {
        QTimer::singleShot(0, [&] {
            user();
            form.unload();
        });
        screen.showModal(form);
    }

    QApplication application{countOfArguments, argumentsOfProgram};
    support::TemporaryFolder folder;
    system::SystemClock clock;
    std::unique_ptr<sql::Connection> database = sqlite::openDatabase(":memory:");
    adapters::StandInSession session{*database};
    qt::QtScreen screen;
    support::NoServices services;
    components::ComponentFactory components;
    platform::Desk desk{screen, components, services, clock};
    Drafts drafts{folder.file("taller.db")};
    DraftWatch watch{screen, drafts};
};

TEST_F(DraftWatchTest, WhatIsTypedIsOnTheDiskInTwoSeconds) {
    proposal::frmBercialPiñones form(session, desk);
    show(form, [&] {
        EXPECT_THAT(written(), IsEmpty());
        type(form, 0, "12,71");
        EXPECT_THAT(written(), HasSubstr("12,71"));
        type(form, 0, "12,72");
        type(form, 0, "12,73");
        wait(draftInterval + std::chrono::milliseconds(200));
        EXPECT_THAT(written(), HasSubstr("12,73"));
    });
}

TEST_F(DraftWatchTest, AClosedWindowLeavesItAndTheNextStartRecoversIt) {
    {
        proposal::frmBercialPiñones form(session, desk);
        show(form, [&] {
            type(form, 0, "12,71");
            type(form, 0, "12,74");
        });
    }
    watch.actionEnded();
    ASSERT_EQ(drafts.left().size(), 1u);
    EXPECT_THAT(drafts.left().front().text, HasSubstr("12,74")) << "the last action too";

    bool seen = false;
    const std::function<void()> user = [&] {
        const auto forms = screen.forms();
        if (forms.empty()) {
            QTimer::singleShot(10, user);
        } else if (auto* main = dynamic_cast<proposal::frmBercialPiñones*>(forms.back())) {
            seen = main->fields().Text1(0).text() == "12,74";
            EXPECT_THAT(written(), HasSubstr("12,74"));
            main->unload();
        } else {
            dynamic_cast<screen::Button&>(*forms.back()->find("cmdRecuperar")).onClick();
            QTimer::singleShot(10, user);
        }
    };
    QTimer::singleShot(0, user);
    watch.offerLeft(session, desk);
    EXPECT_TRUE(seen);
    EXPECT_EQ(drafts.left().size(), 1u) << "closed once more without a save";
}

TEST_F(DraftWatchTest, AProposalThatIsOnlyShownLeavesNone) {
    proposal::frmBercialPiñones form(session, desk);
    form.bConsulta = true;
    show(form, [&] {
        form.fields().Text1(0).setText("12,71");
        watch.actionEnded();
        EXPECT_THAT(written(), IsEmpty());
    });
}

}  // namespace
}  // namespace velmora::desktop
