#pragma once
// What a form tells about its record and about the user's last action. A toolkit shows it below the controls.

#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace velmora::screen {

/// State of the record on a form.
enum class Standing {
    none,  ///< the form has no record of which this could be told
    fresh,
    pending,
    accepted,
    readOnly,
};

struct RecordState {
    Standing standing = Standing::none;
    bool unsaved = false;  ///< something on the form is not stored

    bool operator==(const RecordState&) const = default;
};

/// The texts of a form's status line. All are empty, and the state is none, unless the form tells otherwise:
///
///     status().setStateSource([this] { return stateOfProposal(); });
///     status().tellDeed("Propuesta 321 grabada a las 10:32");
///     status().tellNote("Para buscar en el histórico falta Z");
class StatusLine {
  public:
    using StateSource = std::function<RecordState()>;

    /// `changed` runs after every change of a text and of the source.
    explicit StatusLine(std::function<void()> changed) : changed_(std::move(changed)) {}

    /// Called by toolkits between the user's actions. Must not change the form.
    void setStateSource(StateSource source) {
        source_ = std::move(source);
        changed_();
    }
    RecordState state() const { return source_ ? source_() : RecordState{}; }

    /// What was done last; stays until the next such text.
    void tellDeed(std::string_view text) { assign(deed_, text); }
    const std::string& deed() const { return deed_; }

    /// Why the user's action had no effect, or less than was asked for. Toolkits remove it before the next action.
    void tellNote(std::string_view text) { assign(note_, text); }
    const std::string& note() const { return note_; }
    void clearNote() { assign(note_, {}); }

    /// What is under way and takes long; empty when it has ended. Toolkits show it at once.
    void tellWork(std::string_view text) { assign(work_, text); }
    const std::string& work() const { return work_; }

  private:
    void assign(std::string& slot, std::string_view text) {
        if (slot != text) {
            slot = text;
            changed_();
        }
    }

    std::function<void()> changed_;
    StateSource source_;
    std::string deed_;
    std::string note_;
    std::string work_;
};

}  // namespace velmora::screen
