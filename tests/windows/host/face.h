#pragma once
// Objects that the component calls by the names of their members.

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "velmora/platform/sql/value.h"

#include "wine_com.h"

namespace velmora::wine_host {

/// What was called over the border, in either direction.
struct Traffic {
    long calls = 0;    ///< of members
    long lookups = 0;  ///< of names
    long statements = 0;
};
Traffic& traffic();

/// One call of a member: arguments by position, and the result.
class Call {
  public:
    Call(const DISPPARAMS& parameters, VARIANT& result) : parameters_(parameters), result_(result) {}
    std::size_t count() const { return parameters_.cArgs; }
    VARIANT& argument(std::size_t position) const;
    sql::Value value(std::size_t position) const;
    std::string text(std::size_t position) const { return value(position).toText(); }
    IDispatch* object(std::size_t position) const;
    VARIANT& result() const { return result_; }

  private:
    const DISPPARAMS& parameters_;
    VARIANT& result_;
};

inline constexpr WORD isGet = DISPATCH_PROPERTYGET;
inline constexpr WORD isPut = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;
inline constexpr WORD isMethod = DISPATCH_METHOD;

struct Member {
    std::string name;  ///< in lower case
    WORD how = isMethod;
    std::function<void(Call&)> run;
    bool isDefault = false;
};

/// Counted references; deletes itself with the last. No exception leaves it. What a member captures lives as long.
class Face final : public IDispatch {
  public:
    explicit Face(std::vector<Member> members) : members_(std::move(members)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD how, DISPPARAMS* parameters, VARIANT* result,
                                     EXCEPINFO* info, UINT*) override;

  private:
    ~Face() = default;
    /// The id of a member is the position of the first row of its name, from 1.
    const Member* find(DISPID id, WORD how) const;

    std::vector<Member> members_;
    ULONG references_ = 1;
};

/// Releases its reference at the end.
struct Releaser {
    void operator()(IUnknown* object) const { object->Release(); }
};
using Object = std::unique_ptr<IDispatch, Releaser>;

/// Another reference to it.
Object sharing(IDispatch* object);
Object makeFace(std::vector<Member> members);

/// Count, Item (the default) by position from 0 or by name in any case; error 3265 for what is not there.
struct Item {
    std::string name;
    std::shared_ptr<IDispatch> object;
};
Object makeCollection(std::vector<Item> items);
std::shared_ptr<IDispatch> shared(Object object);

}  // namespace velmora::wine_host
