#pragma once

#include <ocidl.h>
#include <olectl.h>

#include "com/Bindings.h"
#include "com/EventSource.h"
#include "com/ReferenceCount.h"
#include "model/Entry.h"

namespace norvo::com {

/// The face of one object: its dual interface, and what the system's hosts ask of every object.
template <class Binding, class Class>
class Face : public Binding,
             public LibraryObject,
             public ISupportErrorInfo,
             public IProvideClassInfo2 {
 public:
  using Binding::Binding;
  virtual ~Face() { this->Home().Forget(Target().get()); }

  STDMETHODIMP QueryInterface(REFIID identifier, void** found) override {
    if (found == nullptr) return E_POINTER;
    *found = Find(identifier);
    if (*found == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return references_.Add(); }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = references_.Drop();
    if (left == 0) delete this;
    return left;
  }

  const ObjectRef& Target() const final { return this->ShownTarget(); }

  STDMETHODIMP InterfaceSupportsErrorInfo(REFIID identifier) override {
    return Find(identifier) != nullptr ? S_OK : S_FALSE;
  }

  STDMETHODIMP GetClassInfo(ITypeInfo** type) override {
    if (type == nullptr) return E_POINTER;
    *type = nullptr;
    try {
      *type = this->Home().TypeOf(__uuidof(Class)).Detach();
    } catch (const RunTimeError& failure) {
      return StatusOf(failure);
    }
    return S_OK;
  }
  STDMETHODIMP GetGUID(DWORD kind, GUID* identifier) override {
    if (identifier == nullptr) return E_POINTER;
    *identifier = EventsIdentifier();
    const bool known = kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID && *identifier != GUID{};
    return known ? S_OK : E_INVALIDARG;
  }

 protected:
  /// One of the object's interfaces, not yet counted; null when it has no such one.
  virtual void* Find(REFIID identifier) {
    if (identifier == IID_IUnknown || identifier == LibraryObject::kIdentifier) {
      return static_cast<LibraryObject*>(this);
    }
    if (identifier == IID_IDispatch || identifier == __uuidof(typename Binding::DualInterface)) {
      return static_cast<typename Binding::DualInterface*>(this);
    }
    if (identifier == IID_ISupportErrorInfo) return static_cast<ISupportErrorInfo*>(this);
    if (identifier == IID_IProvideClassInfo || identifier == IID_IProvideClassInfo2) {
      return static_cast<IProvideClassInfo2*>(this);
    }
    return nullptr;
  }
  /// Of the interface that the object raises its events through; none without events.
  virtual GUID EventsIdentifier() const { return {}; }

 private:
  LiveObject live_;
  ReferenceCount references_;
};

/// An entry raises an event.
class EntryFace final : public Face<EntryBinding, ::Entry>, public IConnectionPointContainer {
 public:
  explicit EntryFace(const Shown& shown)
      : Face(shown),
        memory_(*this, __uuidof(__Entry), 1,
                static_cast<norvo::Entry&>(shown.object).OutOfMemory()) {}

  STDMETHODIMP QueryInterface(REFIID identifier, void** found) override {
    return Face::QueryInterface(identifier, found);
  }
  STDMETHODIMP_(ULONG) AddRef() override { return Face::AddRef(); }
  STDMETHODIMP_(ULONG) Release() override { return Face::Release(); }

  STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) override {
    return ListConnectionPoints(memory_, points);
  }
  STDMETHODIMP FindConnectionPoint(REFIID events, IConnectionPoint** point) override {
    if (point == nullptr) return E_POINTER;
    *point = nullptr;
    if (events != __uuidof(__Entry)) return CONNECT_E_NOCONNECTION;
    *point = &memory_;
    AddRef();
    return S_OK;
  }

 private:
  void* Find(REFIID identifier) override {
    if (identifier == IID_IConnectionPointContainer) {
      return static_cast<IConnectionPointContainer*>(this);
    }
    return Face::Find(identifier);
  }
  GUID EventsIdentifier() const override { return __uuidof(__Entry); }

  EventSource memory_;
};

/// The field set of a format entry under its plain names: a second interface of the same object.
class EntryFacet final : public EntryBinding {
 public:
  EntryFacet(Shown shown, IUnknown& owner) : EntryBinding(std::move(shown)), owner_(owner) {}

  STDMETHODIMP QueryInterface(REFIID identifier, void** found) override {
    return owner_.QueryInterface(identifier, found);
  }
  STDMETHODIMP_(ULONG) AddRef() override { return owner_.AddRef(); }
  STDMETHODIMP_(ULONG) Release() override { return owner_.Release(); }

 private:
  IUnknown& owner_;
};

/// A format entry can be used wherever an entry is expected.
template <class Binding, class Class>
class FormatEntryFace final : public Face<Binding, Class> {
 public:
  explicit FormatEntryFace(const Shown& shown)
      : Face<Binding, Class>(shown),
        facet_({shown.apartment, shown.target, shown.object, norvo::Entry::Interface()},
               static_cast<LibraryObject&>(*this)) {}

 private:
  void* Find(REFIID identifier) override {
    if (identifier == __uuidof(_Entry)) return static_cast<_Entry*>(&facet_);
    return Face<Binding, Class>::Find(identifier);
  }

  EntryFacet facet_;
};

}  // namespace norvo::com
