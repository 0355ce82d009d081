#pragma once
// What the close button of a window does to its form.

#include "velmora/platform/screen/form.h"

namespace velmora::screen {

/// A form that may stay open when the user closes its window. Any other form is unloaded.
class CloseRequest {
  public:
    CloseRequest() = default;
    virtual ~CloseRequest() = default;
    CloseRequest(const CloseRequest&) = delete;
    CloseRequest& operator=(const CloseRequest&) = delete;

    /// Unloads the form unless something on it would be lost against the user's will.
    virtual void requestClose() = 0;
};

/// Called by toolkits when the user closes the window of the form. Errors: those of the form's own events.
inline void requestClose(Form& form) {
    if (auto* own = dynamic_cast<CloseRequest*>(&form)) {
        own->requestClose();
    } else {
        form.unload();
    }
}

}  // namespace velmora::screen
