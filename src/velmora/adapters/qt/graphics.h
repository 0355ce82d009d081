#pragma once
// Fonts and painting for programs that have no windows.

#include <memory>

class QGuiApplication;

namespace velmora::qt {

/// Painting letters needs the toolkit's application. Where the program has made one, as the desktop does, this does
/// nothing; elsewhere it makes one on the platform that needs no display, and keeps it while it lives. To be used from
/// one thread.
class Graphics {
  public:
    Graphics();
    ~Graphics();
    Graphics(const Graphics&) = delete;
    Graphics& operator=(const Graphics&) = delete;

    /// Makes the application now, if there is none.
    void require();

  private:
    std::unique_ptr<QGuiApplication> own_;
};

}  // namespace velmora::qt
