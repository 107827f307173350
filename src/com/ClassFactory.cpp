#include "com/ClassFactory.h"

#include <algorithm>
#include <new>

#include "com/ErrorInfo.h"
#include "com/Faces.h"
#include "com/LiveObjects.h"
#include "com/ReferenceCount.h"

namespace norvo::com {
namespace {

class ClassFactory final : public IClassFactory {
 public:
  explicit ClassFactory(StringView className) : className_(className) {}

  STDMETHODIMP QueryInterface(REFIID identifier, void** found) override {
    if (found == nullptr) return E_POINTER;
    *found = nullptr;
    if (identifier != IID_IUnknown && identifier != IID_IClassFactory) return E_NOINTERFACE;
    *found = static_cast<IClassFactory*>(this);
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return references_.Add(); }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = references_.Drop();
    if (left == 0) delete this;
    return left;
  }

  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID identifier, void** made) override {
    if (made == nullptr) return E_POINTER;
    *made = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    HRESULT status = S_OK;
    try {
      Guarded([&] {
        const std::shared_ptr<Apartment> apartment = Apartment::Current();
        const ComPointer<IDispatch> face = apartment->FaceOf(apartment->Create(className_));
        status = face->QueryInterface(identifier, made);
      });
    } catch (const RunTimeError& failure) {
      return StatusOf(failure);
    }
    return status;
  }
  STDMETHODIMP LockServer(BOOL lock) override {
    LockModule(lock != FALSE);
    return S_OK;
  }

 private:
  ~ClassFactory() = default;

  LiveObject live_;
  ReferenceCount references_;
  StringView className_;
};

}  // namespace

HRESULT GetClassFactory(REFCLSID classIdentifier, REFIID identifier, void** found) {
  if (found == nullptr) return E_POINTER;
  *found = nullptr;
  for (const PublicClass& each : PublicClasses()) {
    if (each.identifier != classIdentifier) continue;
    const ComPointer<IClassFactory> factory(new (std::nothrow) ClassFactory(each.name));
    return factory ? factory->QueryInterface(identifier, found) : E_OUTOFMEMORY;
  }
  return CLASS_E_CLASSNOTAVAILABLE;
}

}  // namespace norvo::com
