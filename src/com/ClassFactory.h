#pragma once

#include <unknwn.h>

namespace norvo::com {

/// `DllGetClassObject`: the factory of one of the public classes.
HRESULT GetClassFactory(REFCLSID classIdentifier, REFIID identifier, void** found);

}  // namespace norvo::com
