#pragma once
// The machine services in the process of a Windows host.

#include <string>
#include <string_view>

#include "velmora/platform/system/system.h"

struct HINSTANCE__;

namespace velmora::win32 {

class Win32Services : public system::Services {
  public:
    /// `module`: the program or DLL that holds this code.
    explicit Win32Services(HINSTANCE__* module) : module_(module) {}

    /// The user's temporary folder; empty when it does not exist.
    std::string temporaryFolder() const override;
    /// The system's dialog, owned by the active window. Errors: an extended error of the dialog, with its number.
    std::optional<std::string> openFileDialog(const system::OpenFileRequest& request) override;
    int openWithAssociatedProgram(std::string_view path) override;
    bool copyToClipboard(std::string_view text) override;

  private:
    HINSTANCE__* module_;
};

/// Converts "Todos (*.*)|*.*" to the form that the system's dialog takes: a zero character in place of each "|", and
/// two at the end.
std::wstring filterOfDialog(std::string_view filter);

}  // namespace velmora::win32
