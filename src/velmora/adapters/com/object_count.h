#pragma once
// How many objects of this module others hold, and what happens to references when the process ends.

namespace velmora::com {

/// One for each object of ours; the module must stay loaded while there is any.
class CountedObject {
  public:
    CountedObject() noexcept;
    ~CountedObject();
    CountedObject(const CountedObject&) = delete;
    CountedObject& operator=(const CountedObject&) = delete;
};

/// 0 when the module may be unloaded.
long objectsInUse() noexcept;

/// From now on references to objects are dropped without being released. For a module that is being detached: the
/// objects' own modules may be gone.
void leaveReferences() noexcept;
bool areReferencesLeft() noexcept;

}  // namespace velmora::com
