#pragma once

#include <array>
#include <tuple>

#include "com/DispatchCall.h"
#include "com/ErrorInfo.h"
#include "com/LiveObjects.h"
#include "com/RawValue.h"

namespace norvo::com {

/// What a face shows: an object of the library, and the members by which it is reached.
struct Shown {
  std::shared_ptr<Apartment> apartment;
  ObjectRef target;          ///< keeps the object alive
  AutomationObject& object;  ///< whose members are called
  const MemberTable& table;
};

/// The calls of one dual interface: late-bound ones complete, early-bound ones as the bindings
/// forward them. Both reach the object through its member table.
template <class Interface>
class Dispatcher : public Interface {
 public:
  using DualInterface = Interface;

  explicit Dispatcher(Shown shown) : shown_(std::move(shown)) {}

  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    if (count == nullptr) return E_POINTER;
    *count = 1;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** type) override {
    if (type == nullptr) return E_POINTER;
    *type = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    return Guard([&] { *type = Home().TypeOf(__uuidof(Interface)).Detach(); });
  }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
    return DispatchCall::FindNames(shown_.table, names, count, ids);
  }
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* parameters, VARIANT* result,
                      EXCEPINFO* information, UINT*) override {
    if (parameters == nullptr) return E_POINTER;
    const KeepAlive held(this);
    return DispatchCall(Home(), shown_.object, shown_.table)
        .Invoke(id, kind, *parameters, result, information);
  }

 protected:
  const ObjectRef& ShownTarget() const { return shown_.target; }
  Apartment& Home() const { return *shown_.apartment; }
  const std::shared_ptr<Apartment>& SharedHome() const { return shown_.apartment; }

  /// Early-bound: a method, or a property's get.
  template <class Result, class... Raw>
  HRESULT Call(StringView name, Result* result, Raw... raw) {
    if (result == nullptr) return E_POINTER;
    return Guard([&] {
      const Variant value = Perform(name, RawArgument<Raw>(Home(), raw)...);
      *result = RawValue<Result>::Give(Home(), value);
    });
  }
  /// Early-bound: a method without a result.
  template <class... Raw>
  HRESULT Run(StringView name, Raw... raw) {
    return Guard([&] { Perform(name, RawArgument<Raw>(Home(), raw)...); });
  }
  /// Early-bound: a property's let or set.
  template <class Raw>
  HRESULT Let(StringView name, Raw raw) {
    return Guard([&] { Require(name).let(shown_.object, RawArgument<Raw>(Home(), raw).Value()); });
  }

 private:
  /// A call may let go of the last reference to the object that it runs on.
  class KeepAlive {
   public:
    explicit KeepAlive(Interface* face) : face_(face) { face_->AddRef(); }
    ~KeepAlive() { face_->Release(); }
    KeepAlive(const KeepAlive&) = delete;
    KeepAlive& operator=(const KeepAlive&) = delete;

   private:
    Interface* face_;
  };

  const Member& Require(StringView name) const {
    const Member* const member = shown_.table.Find(name);
    if (member == nullptr) throw RunTimeError(error::kNoSuchMember);
    return *member;
  }

  template <class... Raw>
  Variant Perform(StringView name, RawArgument<Raw>... raw) {
    std::array<Variant, sizeof...(Raw)> values{raw.Value()...};
    Variant result = Require(name).call(shown_.object, values);
    std::size_t next = 0;
    (raw.WriteBack(Home(), values[next++]), ...);
    return result;
  }

  template <class Work>
  HRESULT Guard(Work&& work) {
    const KeepAlive held(this);
    try {
      Guarded(work);
    } catch (const RunTimeError& failure) {
      return Report(failure, __uuidof(Interface));
    }
    return S_OK;
  }

  Shown shown_;
};

}  // namespace norvo::com
