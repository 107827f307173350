#pragma once

#include "com/Apartment.h"

namespace norvo::com {

/// A value that came from outside; references are followed. Numbers of types that the library does
/// not have become doubles. Error 13 for a value of no type that it knows.
Variant FromNative(Apartment& apartment, const VARIANT& value);

/// A value for outside, owned by the caller; `made` counts as empty before. Arrays of texts become
/// arrays of variants, since script hosts can index nothing else.
void ToNative(Apartment& apartment, const Variant& value, VARIANT* made);

/// An array of texts for early-bound callers, owned by the caller.
SAFEARRAY* ToTextArray(const StringArray& texts);

/// Puts a value into the variable that `place` refers to (VT_BYREF), converted to the variable's
/// own type; a variant takes it as it is. Error 13 when it does not convert.
void WriteBack(Apartment& apartment, const Variant& value, const VARIANT& place);

}  // namespace norvo::com
