#include "velmora/platform/session/checked_write.h"

#include <memory>

#include "velmora/platform/screen/busy.h"
#include "velmora/platform/sql/in_transaction.h"

namespace velmora::session {

namespace {

constexpr int no = 2;  ///< the default button, so that an accidental Enter does not overwrite another user's change

bool isConfirmed(screen::Screen& screen, const std::string& question) {
    return screen.show({.text = question,
                        .icon = screen::Icon::exclamation,
                        .buttons = screen::Buttons::yesNo,
                        .defaultButton = no}) == screen::Answer::yes;
}

}  // namespace

Written writeChecked(sql::Connection& connection, screen::Screen& screen, const system::Clock& clock,
                     const CheckedWrite& steps) {
    bool confirmed = false;
    std::unique_ptr<screen::Waiting> waiting;
    for (;;) {
        RowState state = RowState::asShown;
        const auto lookAndWrite = [&] {
            state = steps.look();
            if (state == RowState::changed && confirmed) {
                state = RowState::asShown;
            }
            return state == RowState::asShown && steps.write();
        };
        if (sql::inTransaction(connection, lookAndWrite)) {
            return Written::yes;
        }
        switch (state) {
            case RowState::asShown:
                return Written::refused;
            case RowState::closed:
                return Written::closed;
            case RowState::inUse:
                if (!waiting) {
                    waiting = std::make_unique<screen::Waiting>(screen, screen::waitingForOtherUser);
                }
                screen.processEvents();
                clock.pause(pauseInUse);
                break;
            case RowState::changed:
                waiting.reset();
                if (!isConfirmed(screen, steps.question)) {
                    return Written::declined;
                }
                confirmed = true;
                break;
        }
    }
}

}  // namespace velmora::session
