#pragma once
// Events of controls. As in the language, an event has one handler, set by its form.

#include <functional>
#include <utility>

namespace velmora::screen {

/// One event. Raising it runs the handler synchronously; an exception of the handler propagates to the caller. A
/// handler that replaces itself while it runs is completed.
template <typename... Args>
class Event {
  public:
    template <typename Handler>
    Event& operator=(Handler&& handler) {
        handler_ = std::forward<Handler>(handler);
        return *this;
    }

    void operator()(Args... args) const {
        if (handler_) {
            const auto handler = handler_;
            handler(args...);
        }
    }

    explicit operator bool() const { return static_cast<bool>(handler_); }

  private:
    std::function<void(Args...)> handler_;
};

}  // namespace velmora::screen
