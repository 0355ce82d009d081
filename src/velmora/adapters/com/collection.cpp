#include "velmora/adapters/com/collection.h"

#include <algorithm>
#include <array>

#include "velmora/adapters/com/text.h"
#include "velmora/platform/runtime/errors.h"

namespace velmora::com {

namespace {

constexpr long noSuchItem = 3265;

/// Gives the objects of a collection one after the other.
class ItemEnumerator final : public IEnumVARIANT {
  public:
    ItemEnumerator(std::vector<Variant> items, std::size_t next) : items_(std::move(items)), next_(next) {}
    ItemEnumerator(const ItemEnumerator&) = delete;
    ItemEnumerator& operator=(const ItemEnumerator&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override {
        if (out == nullptr) {
            return E_POINTER;
        }
        const bool isThis = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IEnumVARIANT);
        *out = isThis ? this : nullptr;
        if (!isThis) {
            return E_NOINTERFACE;
        }
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) {
            delete this;
        }
        return left;
    }

    HRESULT STDMETHODCALLTYPE Next(ULONG count, VARIANT* items, ULONG* fetched) override {
        if (items == nullptr) {
            return E_POINTER;
        }
        ULONG given = 0;
        for (; given < count && next_ < items_.size(); ++given, ++next_) {
            VariantInit(&items[given]);
            if (VariantCopy(&items[given], items_[next_].address()) < 0) {
                return E_OUTOFMEMORY;
            }
        }
        if (fetched != nullptr) {
            *fetched = given;
        }
        return given == count ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
        const bool enough = items_.size() - next_ >= count;
        next_ = enough ? next_ + count : items_.size();
        return enough ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Reset() override {
        next_ = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** out) override {
        if (out == nullptr) {
            return E_POINTER;
        }
        *out = nullptr;
        return guarded(nullptr, [&] { *out = new ItemEnumerator(items_, next_); });
    }

  private:
    virtual ~ItemEnumerator() = default;

    CountedObject counted_;
    std::vector<Variant> items_;
    std::size_t next_;
    std::atomic<ULONG> references_{1};
};

}  // namespace

std::span<const Member<Collection>> Collection::members() {
    static constexpr std::array table{
        Member<Collection>{
            .name = L"Item", .id = DISPID_VALUE, .how = asGet, .fewest = 1, .most = 1, .run = &Collection::item},
        Member<Collection>{.name = L"Count", .id = 1, .how = asGet, .run = &Collection::count},
        Member<Collection>{.name = L"_NewEnum", .id = DISPID_NEWENUM, .how = asGet, .run = &Collection::enumerate},
    };
    return table;
}

const Variant& Collection::find(const sql::Value& index) const {
    if (index.isText()) {
        const std::wstring wanted = toWide(index.toText());
        const auto found = std::ranges::find_if(items_, [&](const CollectionItem& item) {
            return !item.name.empty() && isSameName(toWide(item.name), wanted);
        });
        if (found != items_.end()) {
            return found->object;
        }
    } else if (const std::int32_t position = index.toLong();
               position >= 0 && static_cast<std::size_t>(position) < items_.size()) {
        return items_[static_cast<std::size_t>(position)].object;
    }
    throw runtime::RuntimeError(noSuchItem, "No se encontró el elemento en la colección.");
}

void Collection::count(Call& call) {
    call.answer(sql::Value(static_cast<std::int64_t>(items_.size())));
}

void Collection::item(Call& call) {
    call.answer(find(call.value(0)));
}

void Collection::enumerate(Call& call) {
    std::vector<Variant> objects;
    for (const CollectionItem& item : items_) {
        objects.push_back(item.object);
    }
    Variant enumerator;
    enumerator.address()->punkVal = new ItemEnumerator(std::move(objects), 0);
    enumerator.address()->vt = VT_UNKNOWN;
    call.answer(std::move(enumerator));
}

void answerCollection(Call& call, const Ref<Collection>& collection) {
    call.answer(call.isGiven(0) ? collection->find(call.value(0)) : objectVariant(collection));
}

}  // namespace velmora::com
