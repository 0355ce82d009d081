#include "support/proposal_walk.h"

#include <map>

#include <gmock/gmock.h>

#include "velmora/adapters/session/stand_in_session.h"
#include "velmora/adapters/win32/text.h"
#include "velmora/proposal/frm_bercial_pinones.h"

#include "support/no_services.h"
#include "support/recorded_rows.h"
#include "support/stopped_clock.h"
#include "win32_hand.h"

namespace velmora::testing {
namespace {

/// The statements that the same walk ran on an engine, without windows (tests/proposal/walk_rows.cpp).
support::Recording recordedWalk() {
    return support::readRecording(VELMORA_TEST_DATA "/adapters/win32/proposal_walk.rows");
}

class ProposalWalk : public ::testing::Test, protected Win32Hand {};

TEST_F(ProposalWalk, AWholeProposalByKeysAloneRunsTheStatementsOfTheSameWalkWithoutWindows) {
    support::RecordedConnection connection(recordedWalk());
    adapters::StandInSession session(connection);
    support::NoServices services;
    const components::ComponentFactory components;
    const support::StoppedClock clock;
    platform::Desk desk{screen(), components, services, clock};
    proposal::frmBercialPiñones form(session, desk);
    std::vector<std::string> boxes;
    onOtherBox([&](HWND box) {
        boxes.push_back(textOfBox(box));
        postKey(GetFocus(), VK_RETURN);
    });
    const std::map<screen::Key, WORD> keys{
        {screen::Key::tab, VK_TAB}, {screen::Key::enter, VK_RETURN}, {screen::Key::f5, VK_F5}};
    EXPECT_TRUE(show(form, [&] {
        support::walkProposal(form, {.type = [this](std::u32string_view text) { type(text); },
                                     .press = [&](screen::Key key) { press(keys.at(key)); }});
        pumpUntil([&] { return !boxes.empty(); });
        EXPECT_EQ(win32::fromWide(win32::textOf(windowOf(form.fields().txtPesu(12)))),
                  form.fields().txtPesu(12).text());
    }));
    EXPECT_THAT(boxes, ::testing::ElementsAre("Datos Grabados satisfactoriamente"));
    std::vector<std::string> recorded;
    for (const support::RecordedStatement& statement : recordedWalk().statements) {
        recorded.push_back(statement.text);
    }
    EXPECT_EQ(connection.executed, recorded);
}

}  // namespace
}  // namespace velmora::testing
