#pragma once
// The messages of the thread: dispatched by our own loops while one of our windows is open.

#include <exception>
#include <functional>
#include <vector>

#include "velmora/adapters/win32/windows_api.h"

namespace velmora::win32 {

/// Sees a message before it is translated and dispatched; true when it is used up.
using MessageFilter = std::function<bool(const MSG&)>;

/// Dispatches messages until `done`, also when the thread is asked to quit. Throws what a window's handler has thrown.
void runUntil(const std::function<bool()>& done, const MessageFilter& filter);

enum class Input { heldBack, dispatched };
/// Dispatches what is pending; keys and mouse only when asked to.
void runPending(Input input, const MessageFilter& filter = {});

/// Keeps an exception that must not pass through the system, until the loop throws it again.
void keepFault(std::exception_ptr fault);

/// Disables all other windows of the thread for as long as a modal window is open. The others are enabled before the
/// modal window goes: else the system would activate a window of another program.
class Modality {
  public:
    explicit Modality(HWND modal);
    ~Modality();
    Modality(const Modality&) = delete;
    Modality& operator=(const Modality&) = delete;

  private:
    HWND before_;
    std::vector<HWND> disabled_;
};

/// The window of the thread that a modal window belongs to: the active one; nullptr without one.
HWND ownerOfModal();

}  // namespace velmora::win32
