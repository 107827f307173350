#pragma once

#include <vector>

#include "com/Apartment.h"

namespace norvo::com {

/// A new face for an object of one of the public classes. Error 429 for any other object.
ComPointer<LibraryObject> MakeFace(const std::shared_ptr<Apartment>& apartment,
                                   const ObjectRef& object);

/// The public classes, as the system creates them.
struct PublicClass {
  StringView name;
  CLSID identifier;
};
std::vector<PublicClass> PublicClasses();

}  // namespace norvo::com
