#pragma once
// Events of controls. As in the language, an event has one handler, set by its form.

#include <functional>
#include <memory>
#include <utility>

namespace velmora::screen {

/// One event. Raising it runs the handler synchronously; an exception of the handler propagates to the caller. A
/// handler that replaces itself while it runs is completed.
template <typename... Args>
class Event {
  public:
    template <typename Handler>
    Event& operator=(Handler&& handler) {
        std::function<void(Args...)> given(std::forward<Handler>(handler));
        handler_ = given ? std::make_shared<const std::function<void(Args...)>>(std::move(given)) : nullptr;
        return *this;
    }

    void operator()(Args... args) const {
        if (handler_) {
            const auto handler = handler_;
            (*handler)(args...);
        }
    }

    explicit operator bool() const { return handler_ != nullptr; }

  private:
    std::shared_ptr<const std::function<void(Args...)>> handler_;  ///< shared with the calls of it that run
};

}  // namespace velmora::screen
