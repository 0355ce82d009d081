#pragma once
// Tracks which fields the user has typed into, as opposed to those written only by the program.

#include <set>

#include "velmora/platform/screen/control.h"

namespace velmora::estimate {

class TypedFields {
  public:
    /// During its lifetime every change counts as the program's: for the masks applied when a field is left.
    class ProgramWrites {
      public:
        explicit ProgramWrites(TypedFields& fields) : fields_(fields) { ++fields_.programWrites_; }
        ~ProgramWrites() { --fields_.programWrites_; }
        ProgramWrites(const ProgramWrites&) = delete;
        ProgramWrites& operator=(const ProgramWrites&) = delete;

      private:
        TypedFields& fields_;
    };

    /// To be called on every change of a field's text: it is the user's when the field has the focus and no
    /// ProgramWrites exists.
    void changed(const screen::TextBox& box);

    /// True when the user has changed the text of this field since the last forget().
    bool contain(const screen::TextBox& box) const { return typed_.contains(&box); }

    /// Counts a field as typed, for one that was typed in an earlier run of the program.
    void add(const screen::TextBox& box) { typed_.insert(&box); }

    /// For another proposal on the form: no field counts as typed.
    void forget() { typed_.clear(); }

  private:
    std::set<const screen::TextBox*> typed_;
    int programWrites_ = 0;
};

}  // namespace velmora::estimate
