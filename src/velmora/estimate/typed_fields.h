#pragma once
// Which fields the user has typed into, as opposed to those that only the program has written.

#include <set>

#include "velmora/platform/screen/control.h"

namespace velmora::estimate {

class TypedFields {
  public:
    /// While it lives, every change is the program's: the masks that a field gets when it is left.
    class ProgramWrites {
      public:
        explicit ProgramWrites(TypedFields& fields) : fields_(fields) { ++fields_.programWrites_; }
        ~ProgramWrites() { --fields_.programWrites_; }
        ProgramWrites(const ProgramWrites&) = delete;
        ProgramWrites& operator=(const ProgramWrites&) = delete;

      private:
        TypedFields& fields_;
    };

    /// To be told of every change of a field's text: it is the user's when the field has the focus and no
    /// ProgramWrites lives.
    void changed(const screen::TextBox& box);

    /// The user has changed the text of this field since the last forget().
    bool contain(const screen::TextBox& box) const { return typed_.contains(&box); }

    /// Another proposal stands on the form: no field counts as typed.
    void forget() { typed_.clear(); }

  private:
    std::set<const screen::TextBox*> typed_;
    int programWrites_ = 0;
};

}  // namespace velmora::estimate
