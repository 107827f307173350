#pragma once

#include <windows.h>

namespace norvo {

/// A function, as the import table holds it.
using Address = ULONG_PTR;

/// Puts another function in the place from which this program calls one of the system, by its name;
/// gives the one that stood there. `std::logic_error` for one that it never calls.
Address ExchangeImport(const char* name, Address function);

}  // namespace norvo
