#pragma once
// What the desktop shows of a statement that runs long: a window with a button that ends it.

#include <QElapsedTimer>

#include "velmora/adapters/qt/progress_window.h"
#include "velmora/platform/sql/long_run.h"

namespace velmora::desktop {

class LongStatement final : public sql::LongRun {
  public:
    /// Shows the window, before the one in front.
    LongStatement();

    bool mayGoOn() override;

  private:
    qt::ProgressWindow window_;
    QElapsedTimer sinceShown_;
};

}  // namespace velmora::desktop
