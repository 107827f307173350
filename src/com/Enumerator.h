#pragma once

#include <windows.h>

#include <algorithm>
#include <vector>

#include "com/LiveObjects.h"
#include "com/ReferenceCount.h"

namespace norvo::com {

/// Lists items to a caller who asks for some at a time. `Item` is what the system's interface hands
/// out; `Keeper` keeps one alive and copies it with a reference of its own: `Item Copy() const`.
template <class Interface, class Item, class Keeper>
class Enumerator final : public Interface {
 public:
  explicit Enumerator(std::vector<Keeper> items, std::size_t next = 0)
      : items_(std::move(items)), next_(next) {}

  STDMETHODIMP QueryInterface(REFIID identifier, void** found) override {
    if (found == nullptr) return E_POINTER;
    *found = nullptr;
    if (identifier != IID_IUnknown && identifier != __uuidof(Interface)) return E_NOINTERFACE;
    *found = static_cast<Interface*>(this);
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return references_.Add(); }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = references_.Drop();
    if (left == 0) delete this;
    return left;
  }

  STDMETHODIMP Next(ULONG wanted, Item* places, ULONG* fetched) override {
    if (places == nullptr || (fetched == nullptr && wanted != 1)) return E_POINTER;
    const auto count = static_cast<ULONG>(std::min<std::size_t>(wanted, items_.size() - next_));
    for (ULONG i = 0; i < count; ++i) places[i] = items_[next_++].Copy();
    if (fetched != nullptr) *fetched = count;
    return count == wanted ? S_OK : S_FALSE;
  }
  STDMETHODIMP Skip(ULONG count) override {
    const std::size_t left = items_.size() - next_;
    next_ += std::min<std::size_t>(count, left);
    return count <= left ? S_OK : S_FALSE;
  }
  STDMETHODIMP Reset() override {
    next_ = 0;
    return S_OK;
  }
  STDMETHODIMP Clone(Interface** copy) override {
    if (copy == nullptr) return E_POINTER;
    *copy = new Enumerator(items_, next_);
    (*copy)->AddRef();
    return S_OK;
  }

 private:
  ~Enumerator() = default;

  LiveObject live_;
  ReferenceCount references_;
  std::vector<Keeper> items_;
  std::size_t next_;
};

}  // namespace norvo::com
