#pragma once

#include <oaidl.h>
#include <windows.h>

#include <memory>
#include <unordered_map>

#include "com/ComPointer.h"
#include "services/Component.h"

namespace norvo::com {

/// The face of one of the library's objects, as the module itself sees it.
struct LibraryObject : IUnknown {
  static const IID kIdentifier;
  virtual const ObjectRef& Target() const = 0;

 protected:
  ~LibraryObject() = default;
};

/// The library as one thread has it: its component, and the faces of the objects that are known
/// outside. Every object has one face, so that two references to it are equal to their holder.
class Apartment : public std::enable_shared_from_this<Apartment> {
 public:
  explicit Apartment(std::shared_ptr<Platform> platform);

  /// That of the calling thread, made when it is asked for first.
  static std::shared_ptr<Apartment> Current();
  /// The calling thread ends. Its apartment goes as soon as that is safe and nobody holds it.
  static void Retire();
  /// Lets go of all apartments; only while there are no objects.
  static void ReleaseAll();

  /// A new object of a public class. Error 429 for an unknown name.
  ObjectRef Create(StringView className) { return component_->Create(className); }
  Component& Library() { return *component_; }

  /// What stands for the object outside: its face, or the very object that came from outside.
  ComPointer<IDispatch> FaceOf(const ObjectRef& object);
  /// The object behind a reference that came from outside: the library's own, or a stand-in that
  /// passes all calls on. Null for null.
  ObjectRef ObjectOf(IDispatch* face);

  /// The module's type library. Raises when it cannot be loaded.
  ComPointer<ITypeInfo> TypeOf(const GUID& identifier);

  // For the faces themselves.
  void Forget(const AutomationObject* object);

 private:
  std::unique_ptr<Component> component_;
  std::unordered_map<const AutomationObject*, LibraryObject*> faces_;  // not owned
  ComPointer<ITypeLib> types_;
};

}  // namespace norvo::com
