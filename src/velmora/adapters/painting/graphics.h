#pragma once
// Fonts and painting for programs without windows.

#include <memory>

class QGuiApplication;

namespace velmora::painting {

/// Painting text needs a QGuiApplication. When the program has created one, as the desktop does, this does nothing;
/// otherwise it creates one on a platform that needs no display and keeps it for its own lifetime. Single-threaded use
/// only.
class Graphics {
  public:
    Graphics();
    ~Graphics();
    Graphics(const Graphics&) = delete;
    Graphics& operator=(const Graphics&) = delete;

    /// Creates the application now, if there is none.
    void require();

  private:
    std::unique_ptr<QGuiApplication> own_;
};

}  // namespace velmora::painting
