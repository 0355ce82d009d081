#pragma once
// The object with which a host plays a story.

#include <memory>
#include <string>

#include "velmora/adapters/com/automation_object.h"

namespace velmora::stories {

/// Called in this order: Open, then, with an instance of the public class made and its session set, Play.
class Player final : public com::AutomationObject<Player> {
  public:
    static std::span<const com::Member<Player>> members();

  private:
    /// Script, file of the output, "YYYY-MM-DD HH:MM:SS" or "" for a clock that runs, folder for what is written.
    void open(com::Call& call);
    /// The instance, and the host's side: Engine, a connection for the script's own queries; RefuseNext(text) and Lose,
    /// the faults of the session's connection; Tell(reason), why a script has ended early. Result: the script's status.
    void play(com::Call& call);
    /// A line of the output.
    void line(com::Call& call);
    /// For components: opens a file (its path), shows a box (text, title, icon, buttons, default button).
    void opened(com::Call& call);
    void show(com::Call& call);

    std::string script_;
};

}  // namespace velmora::stories
