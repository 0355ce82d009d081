#pragma once
// What the desktop shows of a statement of the embedded engine that runs long: a window with a button that ends it.

#include <QElapsedTimer>

#include "velmora/adapters/qt/progress_window.h"
#include "velmora/adapters/sqlite/database.h"

namespace velmora::desktop {

class LongStatement final : public sqlite::LongRun {
  public:
    /// Shows the window, before the one in front.
    LongStatement();

    bool mayGoOn() override;

  private:
    qt::ProgressWindow window_;
    QElapsedTimer sinceShown_;
};

}  // namespace velmora::desktop
