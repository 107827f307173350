// What the system and its hosts call in the module. The names are exported by NorvoPlayList.def.

#include <olectl.h>
#include <windows.h>

#include "com/Apartment.h"
#include "com/ClassFactory.h"
#include "com/LiveObjects.h"
#include "com/Registration.h"

using namespace norvo::com;

extern "C" {

BOOL WINAPI DllMain(HINSTANCE, DWORD reason, void*) {
  if (reason == DLL_THREAD_DETACH) Apartment::Retire();
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classIdentifier, REFIID identifier, void** found) {
  return GetClassFactory(classIdentifier, identifier, found);
}

STDAPI DllCanUnloadNow() {
  if (!IsModuleIdle()) return S_FALSE;
  Apartment::ReleaseAll();
  return S_OK;
}

STDAPI DllRegisterServer() {
  return Register(RegisteredFor::Machine);
}

STDAPI DllUnregisterServer() {
  return Unregister(RegisteredFor::Machine);
}

/// `regsvr32 /n /i:user` registers for the current user alone.
STDAPI DllInstall(BOOL install, LPCWSTR commandLine) {
  const bool forUser = commandLine != nullptr && ::lstrcmpiW(commandLine, L"user") == 0;
  const RegisteredFor whom = forUser ? RegisteredFor::User : RegisteredFor::Machine;
  return install != FALSE ? Register(whom) : Unregister(whom);
}

/// The objects that are alive, for those who look for leaks.
STDAPI_(LONG) NorvoCountObjects() {
  return CountLiveObjects();
}

}  // extern "C"
