#pragma once
// A machine without a temporary folder, dialogs or programs.

#include <optional>
#include <string>
#include <string_view>

#include "velmora/platform/system/system.h"

namespace velmora::support {

class NoServices final : public system::Services {
  public:
    std::string temporaryFolder() const override { return {}; }
    std::optional<std::string> openFileDialog(const system::OpenFileRequest&) override { return std::nullopt; }
    int openWithAssociatedProgram(std::string_view) override { return 0; }
};

}  // namespace velmora::support
