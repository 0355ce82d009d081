#pragma once
// The end of the program where no window can be opened.

#include <QtGlobal>

namespace velmora::desktop {

/// Exit status of the program without a display.
inline constexpr int noDisplay = 3;

/// While the toolkit's application is made: without a display the toolkit would abort the process; instead, the reason
/// is told on the standard error output and the program ends with `noDisplay`. One at a time.
class DisplayNeeded {
  public:
    DisplayNeeded();
    ~DisplayNeeded();
    DisplayNeeded(const DisplayNeeded&) = delete;
    DisplayNeeded& operator=(const DisplayNeeded&) = delete;

  private:
    QtMessageHandler before_;
};

}  // namespace velmora::desktop
