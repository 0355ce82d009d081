#pragma once
// Classes of this process that others create by their ProgIDs.

#include <string>
#include <string_view>
#include <vector>

#include "face.h"

namespace velmora::wine_host {

/// Offers classes while it lives: this process creates them although a module may be registered under their names.
class ClassObjects {
  public:
    ClassObjects() = default;
    ~ClassObjects();
    ClassObjects(const ClassObjects&) = delete;
    ClassObjects& operator=(const ClassObjects&) = delete;

    /// A ProgID that the registry does not know yet gets this identifier there. Error 5 when that fails.
    void add(std::string_view progId, const CLSID& id, std::function<Object()> make);

  private:
    std::vector<DWORD> registrations_;
};

/// Enters a class that a module brings: its ProgID, its identifier and the module's path as Windows names it.
void registerModule(std::string_view progId, const CLSID& id, std::string_view module);

}  // namespace velmora::wine_host
