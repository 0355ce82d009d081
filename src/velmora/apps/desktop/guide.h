#pragma once
// The user's guide, a PDF beside the program.

#include <string>

#include "velmora/platform/desk.h"

namespace velmora::desktop {

/// The guide of the installation, or of the build, whose programs are in this folder; empty when there is none.
std::string guideFile(const std::string& programs);

/// Opens the guide with the machine's program for such files, or says why not.
void openGuide(platform::Desk& desk, const std::string& programs);

}  // namespace velmora::desktop
