#pragma once
// Controls that share a name and are distinguished by an index, gaps allowed: Text1(0) to Text1(25).

#include <functional>
#include <initializer_list>
#include <map>
#include <memory>

#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/screen/control.h"

namespace velmora::screen {

/// Closed ranges of indexes: {{0, 17}, {20, 25}}.
struct IndexRange {
    int from;
    int to;
};

template <typename T>
class ControlArray {
  public:
    ControlArray(Form& form, const std::string& name, std::initializer_list<IndexRange> ranges) {
        for (const IndexRange& range : ranges) {
            for (int i = range.from; i <= range.to; ++i) {
                controls_.emplace(i, std::make_unique<T>(form, name, i));
            }
        }
    }

    /// Error 340 when no control has this index.
    T& operator()(int index) const {
        const auto found = controls_.find(index);
        if (found == controls_.end()) {
            runtime::raise(runtime::controlArrayElementMissing);
        }
        return *found->second;
    }
    bool contains(int index) const { return controls_.contains(index); }

    /// Calls `action` for each control in order of index.
    void forEach(const std::function<void(T&)>& action) const {
        for (const auto& [index, control] : controls_) {
            action(*control);
        }
    }

    /// Sets the handler of one event for all controls; the handler receives the index first:
    /// Text1.on(&TextBox::onChange, …).
    template <typename... Args, typename Base>
    void on(Event<Args...> Base::*event, std::function<void(int, Args...)> handler) const {
        for (const auto& [index, control] : controls_) {
            (control.get()->*event) = [handler, i = index](Args... args) { handler(i, args...); };
        }
    }

  private:
    std::map<int, std::unique_ptr<T>> controls_;
};

}  // namespace velmora::screen
