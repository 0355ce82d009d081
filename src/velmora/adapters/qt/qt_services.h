#pragma once
// The machine services of the desktop program.

#include <QStringList>

#include "velmora/adapters/machine/own_folder.h"
#include "velmora/platform/system/system.h"

namespace velmora::qt {

class QtServices : public system::Services {
  public:
    /// The program's own folder below the system's temporary one; empty when no trusted one is available.
    std::string temporaryFolder() const override;
    std::optional<std::string> openFileDialog(const system::OpenFileRequest& request) override;
    int openWithAssociatedProgram(std::string_view path) override;
    bool copyToClipboard(std::string_view text) override;

  private:
    mutable machine::OwnFolder folder_;
};

/// Converts "Todos (*.*)|*.*|Textos|*.txt;*.log" to the form that the toolkit's file dialog takes.
QStringList nameFilters(std::string_view filter);

}  // namespace velmora::qt
