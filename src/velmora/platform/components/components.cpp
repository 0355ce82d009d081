#include "velmora/platform/components/components.h"

#include "velmora/platform/runtime/text.h"

namespace velmora::components {

// NOLINTNEXTLINE(performance-unnecessary-value-param): a few names, once when the program starts
void ComponentFactory::add(std::string progId, Maker maker) {
    makers_[runtime::UCase(progId)] = std::move(maker);
}

std::vector<std::string> ComponentFactory::progIds() const {
    std::vector<std::string> ids;
    for (const auto& [progId, maker] : makers_) {
        ids.push_back(progId);
    }
    return ids;
}

std::unique_ptr<Component> ComponentFactory::make(std::string_view progId) const {
    const auto found = makers_.find(runtime::UCase(progId));
    return found == makers_.end() ? nullptr : found->second();
}

void ComponentFactory::refuse(std::string_view progId) {
    throw runtime::RuntimeError(runtime::cannotCreateObject, runtime::errorDescription(runtime::cannotCreateObject) +
                                                                 ": falta el componente " + std::string(progId));
}

}  // namespace velmora::components
