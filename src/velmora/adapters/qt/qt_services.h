#pragma once
// The machine around the desktop program.

#include <QStringList>

#include "velmora/platform/system/system.h"

namespace velmora::qt {

class QtServices : public system::Services {
  public:
    std::string temporaryFolder() const override;
    std::optional<std::string> openFileDialog(const system::OpenFileRequest& request) override;
    int openWithAssociatedProgram(std::string_view path) override;
};

/// "Todos (*.*)|*.*|Textos|*.txt;*.log" as the toolkit's file dialog takes it.
QStringList nameFilters(std::string_view filter);

}  // namespace velmora::qt
