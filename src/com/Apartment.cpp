#include "com/Apartment.h"

#include <mutex>
#include <utility>
#include <vector>

#include "com/ErrorInfo.h"
#include "com/Faces.h"
#include "com/ForeignObject.h"
#include "library/Library.h"
#include "platform/windows/ModulePath.h"
#include "platform/windows/WideText.h"
#include "platform/windows/WindowsPlatform.h"

namespace norvo::com {
namespace {

/// All apartments of the process. Never destroyed by the end of the process: the system's own
/// libraries may be gone by then.
struct Apartments {
  std::mutex lock;
  std::unordered_map<DWORD, std::shared_ptr<Apartment>> byThread;
  std::vector<std::shared_ptr<Apartment>> retired;
};

Apartments& All() {
  static auto* const all = new Apartments;
  return *all;
}

}  // namespace

const IID LibraryObject::kIdentifier = {
    0xaff226ab, 0x9d3e, 0x4ece, {0x9f, 0xe5, 0x98, 0x49, 0x45, 0x58, 0xd8, 0xb6}};

Apartment::Apartment(std::shared_ptr<Platform> platform)
    : component_(OpenLibrary(std::move(platform))) {}

std::shared_ptr<Apartment> Apartment::Current() {
  const DWORD thread = ::GetCurrentThreadId();
  std::vector<std::shared_ptr<Apartment>> retired;  // goes after the lock
  {
    const std::lock_guard guard(All().lock);
    retired.swap(All().retired);
    const auto found = All().byThread.find(thread);
    if (found != All().byThread.end()) return found->second;
  }
  // Not under the lock: this may load a library, and a thread that ends holds the loader's own lock
  // while it waits for this one.
  auto made = std::make_shared<Apartment>(std::make_shared<WindowsPlatform>());
  const std::lock_guard guard(All().lock);
  return All().byThread[thread] = std::move(made);
}

void Apartment::Retire() {
  const std::lock_guard guard(All().lock);
  const auto found = All().byThread.find(::GetCurrentThreadId());
  if (found == All().byThread.end()) return;
  All().retired.push_back(std::move(found->second));
  All().byThread.erase(found);
}

void Apartment::ReleaseAll() {
  std::unordered_map<DWORD, std::shared_ptr<Apartment>> byThread;
  std::vector<std::shared_ptr<Apartment>> retired;
  const std::lock_guard guard(All().lock);
  byThread.swap(All().byThread);
  retired.swap(All().retired);
}

ComPointer<IDispatch> Apartment::FaceOf(const ObjectRef& object) {
  if (!object) return {};
  if (const auto* foreign = dynamic_cast<const ForeignObject*>(object.get())) {
    return foreign->Face();
  }
  if (const auto found = faces_.find(object.get()); found != faces_.end()) {
    return ComPointer<LibraryObject>(found->second).As<IDispatch>();
  }
  const ComPointer<LibraryObject> made = MakeFace(shared_from_this(), object);
  faces_.emplace(object.get(), made.Get());
  return made.As<IDispatch>();
}

ObjectRef Apartment::ObjectOf(IDispatch* face) {
  if (face == nullptr) return nullptr;
  const ComPointer<IDispatch> held(face);
  if (const auto own = held.As<LibraryObject>(LibraryObject::kIdentifier)) return own->Target();
  return std::make_shared<ForeignObject>(shared_from_this(), held);
}

ComPointer<ITypeInfo> Apartment::TypeOf(const GUID& identifier) {
  if (!types_) {
    const HRESULT status = ::LoadTypeLibEx(ToWide(ModulePath()), REGKIND_NONE, types_.Receive());
    if (FAILED(status)) throw ErrorOf(status);
  }
  ComPointer<ITypeInfo> type;
  const HRESULT status = types_->GetTypeInfoOfGuid(identifier, type.Receive());
  if (FAILED(status)) throw ErrorOf(status);
  return type;
}

void Apartment::Forget(const AutomationObject* object) {
  faces_.erase(object);
}

}  // namespace norvo::com
