#pragma once
// Keeps the draft of the proposal on the screen, and offers those that were left at the start.

#include <QTimer>
#include <chrono>
#include <optional>
#include <string>

#include "velmora/adapters/qt/qt_screen.h"
#include "velmora/apps/desktop/drafts.h"
#include "velmora/platform/desk.h"
#include "velmora/platform/session/session.h"

namespace velmora::desktop {

/// A draft is written at the latest this long after what it holds was typed.
inline constexpr std::chrono::milliseconds draftInterval{2000};

class DraftWatch {
  public:
    /// All must outlive this object.
    DraftWatch(qt::QtScreen& screen, Drafts& drafts);
    ~DraftWatch();
    DraftWatch(const DraftWatch&) = delete;
    DraftWatch& operator=(const DraftWatch&) = delete;

    /// To be called after each action of the user.
    void actionEnded();

    /// Asks about each draft that was left, and opens those that are to be recovered, one after the other.
    void offerLeft(session::Session& session, platform::Desk& desk);

  private:
    void giveUp();
    void recover(const LeftDraft& draft, session::Session& session, platform::Desk& desk);

    qt::QtScreen& screen_;
    Drafts& drafts_;
    std::optional<std::string> draft_;  ///< as it is after the last action; written by the timer if not at once
    QTimer timer_;
};

}  // namespace velmora::desktop
