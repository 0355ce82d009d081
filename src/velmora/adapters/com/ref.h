#pragma once
// A counted reference to a COM object.

#include <utility>

#include "velmora/adapters/com/com_headers.h"
#include "velmora/adapters/com/object_count.h"

namespace velmora::com {

template <typename Interface>
class Ref {
  public:
    Ref() = default;
    /// Takes over a reference that the caller owns; null is allowed.
    static Ref taking(Interface* object) { return Ref(object); }
    /// Adds a reference; null is allowed.
    static Ref sharing(Interface* object) {
        if (object != nullptr) {
            object->AddRef();
        }
        return Ref(object);
    }
    Ref(const Ref& other) : Ref(sharing(other.object_)) {}
    Ref(Ref&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    Ref& operator=(Ref other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~Ref() {
        if (object_ != nullptr && !areReferencesLeft()) {
            object_->Release();
        }
    }

    Interface* get() const { return object_; }
    Interface* operator->() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }

    /// For a function that returns a reference through a pointer. Releases what was held.
    Interface** out() {
        *this = Ref();
        return &object_;
    }
    void** outUntyped() { return reinterpret_cast<void**>(out()); }

    /// The reference becomes the caller's.
    [[nodiscard]] Interface* detach() { return std::exchange(object_, nullptr); }

    /// The object's other interface; empty when it has none.
    template <typename Other>
    Ref<Other> as() const {
        Ref<Other> other;
        if (object_ != nullptr && object_->QueryInterface(__uuidof(Other), other.outUntyped()) < 0) {
            return {};
        }
        return other;
    }

  private:
    explicit Ref(Interface* object) : object_(object) {}
    Interface* object_ = nullptr;
};

}  // namespace velmora::com
