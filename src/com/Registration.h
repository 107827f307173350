#pragma once

#include <windows.h>

namespace norvo::com {

/// For whom the classes are registered: everybody, which asks for the rights of an administrator,
/// or the current user alone.
enum class RegisteredFor { Machine, User };

/// Makes all classes and the type library known to the system, at the place where this module is.
/// What was written is taken back when something fails.
HRESULT Register(RegisteredFor whom);
/// Takes that back; what is not there does no harm.
HRESULT Unregister(RegisteredFor whom);

}  // namespace norvo::com
