#pragma once
// Plays the steps of a walk in whatever window has the keyboard.

#include <QObject>
#include <functional>
#include <string>
#include <vector>

#include "velmora/apps/walk/hand.h"
#include "velmora/apps/walk/steps.h"

class QWidget;

namespace velmora::walk {

/// Each step is due as soon as the window on top is ready for it, also while a key's work runs an inner event loop, as
/// a window that it opened does. When the steps are at an end, what is still open is closed.
class Walker : public QObject {
  public:
    /// `paper` gives the path of the first paper opened since it was last asked; empty when there is none.
    Walker(std::vector<Step> steps, std::string folder, std::function<std::string()> paper);

    void start();

    /// What went wrong, a line each: windows larger than the screen, missing papers, windows still open at the end,
    /// steps that no window took.
    const std::vector<std::string>& complaints() const { return complaints_; }

  private:
    void tick();
    void later();
    void perform(QWidget& window);
    void write(const ScreenPicture& step, QWidget& window);
    void write(const WindowPicture& step, QWidget& window);
    void write(const Paper& step);
    void finish(QWidget& window);
    std::string pathOf(const std::string& name, const char* ending) const;

    std::vector<Step> steps_;
    std::string folder_;
    std::function<std::string()> paper_;
    std::vector<std::string> complaints_;
    std::size_t next_ = 0;
    int waits_ = 0;
    Hand hand_;
};

}  // namespace velmora::walk
