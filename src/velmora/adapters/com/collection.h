#pragma once
// A collection of objects of ours: Count, Item, and what `For Each` asks for.

#include <string>
#include <vector>

#include "velmora/adapters/com/automation_object.h"

namespace velmora::com {

struct CollectionItem {
    std::string name;  ///< empty when it is found by its position alone
    Variant object;
};

/// Found by a position from 0, or by a name in any case. Error 3265 for what is not there.
class Collection final : public AutomationObject<Collection> {
  public:
    explicit Collection(std::vector<CollectionItem> items) : items_(std::move(items)) {}
    static std::span<const Member<Collection>> members();

    /// The item that a caller's argument names.
    const Variant& find(const sql::Value& index) const;

  private:
    void count(Call& call);
    void item(Call& call);
    void enumerate(Call& call);

    std::vector<CollectionItem> items_;
};

/// A property that gives the collection, or one of its items when it is called with an argument.
void answerCollection(Call& call, const Ref<Collection>& collection);

}  // namespace velmora::com
