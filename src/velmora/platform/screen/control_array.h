#pragma once
// Controls that share a name and are distinguished by an index, gaps allowed: Text1(0) to Text1(25).

#include <algorithm>
#include <cstddef>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/screen/control.h"

namespace velmora::screen {

/// Closed ranges of indexes from 0 up: {{0, 17}, {20, 25}}.
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
                place(i) = std::make_unique<T>(form, name, i);
            }
        }
    }

    /// Error 340 when no control has this index.
    T& operator()(int index) const {
        if (!contains(index)) {
            runtime::raise(runtime::controlArrayElementMissing);
        }
        return *controls_[static_cast<std::size_t>(index)];
    }
    bool contains(int index) const {
        const auto at = static_cast<std::size_t>(index);
        return index >= 0 && at < controls_.size() && controls_[at] != nullptr;
    }

    /// Calls `action` for each control in order of index.
    void forEach(const std::function<void(T&)>& action) const {
        for (const auto& control : controls_) {
            if (control) {
                action(*control);
            }
        }
    }

    /// Sets the handler of one event for all controls; the handler receives the index first:
    /// Text1.on(&TextBox::onChange, …).
    template <typename... Args, typename Base>
    void on(Event<Args...> Base::*event, std::function<void(int, Args...)> handler) const {
        forEach([&](T& control) {
            (control.*event) = [handler, i = control.index()](Args... args) { handler(i, args...); };
        });
    }

  private:
    std::unique_ptr<T>& place(int index) {
        const auto at = static_cast<std::size_t>(index);
        controls_.resize(std::max(controls_.size(), at + 1));
        return controls_[at];
    }

    std::vector<std::unique_ptr<T>> controls_;  ///< by index; null where there is a gap
};

}  // namespace velmora::screen
