#include "velmora/apps/desktop/lock_note.h"

#include "velmora/platform/screen/busy.h"

namespace velmora::desktop {

void LockNote::tell(bool waits) {
    const auto forms = screen_.forms();
    const bool free = !forms.empty() && forms.back()->status().work().empty();
    if (waits && free) {
        told_ = true;
        screen_.tellWork(screen::waitingForOtherUser);
    } else if (!waits && told_) {
        told_ = false;
        screen_.tellWork({});
    }
}

}  // namespace velmora::desktop
