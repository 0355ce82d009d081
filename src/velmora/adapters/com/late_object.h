#pragma once
// An object of the host's or of one of its components, called by the names of its members.

#include <initializer_list>
#include <memory>
#include <string_view>
#include <vector>

#include "velmora/adapters/com/com_headers.h"
#include "velmora/adapters/com/ref.h"
#include "velmora/adapters/com/variant.h"

namespace velmora::com {

/// One argument of a call: a value, or a variable that the callee may write.
class Argument {
  public:
    Argument(Variant value) : value_(std::move(value)) {}
    /// The variable keeps its type unless the callee is a script. It must outlive the call.
    static Argument byRef(Variant& variable) { return Argument(&variable); }

    /// As the callee gets it. A script takes references to variants only, every other callee references to the type
    /// that it has declared.
    VARIANT passedTo(bool script);

  private:
    explicit Argument(Variant* variable) : variable_(variable) {}
    Variant value_;
    Variant* variable_ = nullptr;
};

using Arguments = std::initializer_list<Argument>;

/// Copies denote the same object and share what is known of its names. Errors of all operations: those that the object
/// raises, with its number, description and source; 91 for Nothing; 438 for a member that it does not have; 450 and 13
/// for arguments that it does not take.
class LateObject {
  public:
    LateObject() = default;
    explicit LateObject(Ref<IDispatch> object);

    /// A new object of a class registered under this name. Error 429 when there is none or it cannot be made.
    static LateObject create(std::string_view progId);
    /// As create; Nothing instead of the error.
    static LateObject tryCreate(std::string_view progId);

    explicit operator bool() const { return bound_ != nullptr; }
    /// Null for Nothing.
    const Ref<IDispatch>& dispatch() const;
    /// True when both denote one object.
    bool isSame(const LateObject& other) const;

    bool has(std::string_view member) const;

    /// Reads a property; a method of this name is called.
    Variant get(std::string_view member, Arguments arguments = {}) const;
    LateObject getObject(std::string_view member, Arguments arguments = {}) const;
    void put(std::string_view member, const Variant& value) const;
    /// As `Set object.member = value`; put where the member knows no other way.
    void putRef(std::string_view member, const LateObject& value) const;
    Variant call(std::string_view member, Arguments arguments = {}) const;

    /// The default member.
    Variant getDefault(Arguments arguments = {}) const;
    /// The member of this name, or the default member where there is none: `Item` of a collection, `Value` of a field.
    Variant getOrDefault(std::string_view member, Arguments arguments = {}) const;

  private:
    struct Bound;
    const Bound& bound() const;
    Variant invoke(DISPID id, std::string_view member, std::initializer_list<WORD> ways,
                   std::vector<Argument> arguments) const;
    std::shared_ptr<Bound> bound_;
};

/// `value` as an object; error 13 when it is none.
LateObject objectIn(const Variant& value);

}  // namespace velmora::com
