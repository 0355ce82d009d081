#include "velmora/services/common_dialog.h"

#include "velmora/platform/runtime/errors.h"
#include "velmora/services/document_files.h"

namespace velmora::services {

bool VBGetOpenFileName(system::Services& services, std::string& fileName, std::string& fileTitle,
                       const std::string& dialogTitle, const std::string& filter) {
    try {
        const auto chosen = services.openFileDialog({.title = dialogTitle, .filter = filter});
        if (!chosen) {
            return false;
        }
        fileName = *chosen;
        fileTitle = nameOfFile(*chosen);
        return true;
    } catch (const runtime::RuntimeError& error) {
        throw runtime::RuntimeError(error.number(), error.description(), "VELMORA.CommonDialog");
    }
}

}  // namespace velmora::services
