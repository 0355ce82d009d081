#include "velmora/adapters/com/object_count.h"

#include <atomic>

namespace velmora::com {

namespace {

std::atomic<long> liveObjects{0};
std::atomic<bool> referencesLeft{false};

}  // namespace

CountedObject::CountedObject() noexcept {
    ++liveObjects;
}

CountedObject::~CountedObject() {
    --liveObjects;
}

long objectsInUse() noexcept {
    return liveObjects;
}

void leaveReferences() noexcept {
    referencesLeft = true;
}

bool areReferencesLeft() noexcept {
    return referencesLeft;
}

}  // namespace velmora::com
