#pragma once
// Calls of the component's objects by the names of their members.

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/platform/sql/value.h"

#include "face.h"

namespace velmora::wine_host {

/// A variant that releases what it holds.
class Held {
  public:
    Held() { VariantInit(&variant_); }
    explicit Held(const sql::Value& value) : Held() { giveValue(value); }
    explicit Held(IDispatch* object);
    Held(Held&& other) noexcept;
    Held& operator=(Held&&) = delete;
    ~Held() { VariantClear(&variant_); }
    VARIANT& raw() { return variant_; }
    sql::Value value() const;
    /// Error 13 when it is none or Nothing.
    Object object() const;

  private:
    void giveValue(const sql::Value& value);
    VARIANT variant_;
};

/// Error 429 when the class is not registered or cannot be made.
Object create(std::string_view progId);

/// Errors: that of the callee, with its number, description and source.
Held invoke(IDispatch& object, std::string_view member, WORD how, std::vector<Held> arguments = {});
Held get(IDispatch& object, std::string_view member);
Object getObject(IDispatch& object, std::string_view member);
Object item(IDispatch& collection, int index);

template <typename... Values>
Held call(IDispatch& object, std::string_view member, const Values&... values) {
    std::vector<Held> arguments;
    (arguments.emplace_back(values), ...);
    return invoke(object, member, DISPATCH_METHOD, std::move(arguments));
}

}  // namespace velmora::wine_host
