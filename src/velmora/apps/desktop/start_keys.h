#pragma once
// Keys between search box and list of the start window, which forms do not see.

#include <QObject>

#include "velmora/adapters/qt/qt_screen.h"
#include "velmora/apps/desktop/start_form.h"

class QKeyEvent;

namespace velmora::desktop {

/// While the start window is on top: up, down and the page keys move through the list with the focus in the search box,
/// and a character typed in the list goes to the search box. Active for as long as it lives.
class StartKeys : public QObject {
  public:
    /// Both must outlive this object.
    StartKeys(qt::QtScreen& screen, StartForm& form);
    ~StartKeys() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool isOnTop(const QObject* watched) const;
    bool moveInList(QKeyEvent& key);
    bool typeIntoBox(QKeyEvent& key);

    qt::QtScreen& screen_;
    StartForm& form_;
};

}  // namespace velmora::desktop
