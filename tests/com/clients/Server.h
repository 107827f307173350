#pragma once

#include "clients/Held.h"

#include <unknwn.h>

#include <string>

namespace norvo::clients {

/// Where the library and its manifest were built.
std::wstring LibraryPath();
std::wstring ManifestPath();

/// The library as the process has loaded it, held while this lives.
class Server {
 public:
  Server() : module_(::LoadLibraryW(LibraryPath().c_str())) {}
  ~Server() { ::FreeLibrary(module_); }
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;

  bool IsLoaded() const { return module_ != nullptr; }
  LONG CountObjects() const { return Export<LONG WINAPI()>("NorvoCountObjects")(); }
  HRESULT CanUnloadNow() const { return Export<HRESULT WINAPI()>("DllCanUnloadNow")(); }
  HRESULT Register() const { return Export<HRESULT WINAPI()>("DllRegisterServer")(); }
  HRESULT Unregister() const { return Export<HRESULT WINAPI()>("DllUnregisterServer")(); }
  HRESULT Install(bool install, const wchar_t* whom) const {
    return Export<HRESULT WINAPI(BOOL, LPCWSTR)>("DllInstall")(install ? TRUE : FALSE, whom);
  }
  HRESULT GetClassObject(REFCLSID type, REFIID identifier, void** found) const {
    return Export<HRESULT WINAPI(REFCLSID, REFIID, void**)>("DllGetClassObject")(type, identifier,
                                                                                 found);
  }
  /// A new object straight from the library, without the system's help.
  template <class Class, class Interface>
  Held<Interface> Make() const {
    Held<IClassFactory> factory;
    Held<Interface> made;
    if (FAILED(GetClassObject(__uuidof(Class), IID_IClassFactory, factory.ReceiveAny()))) {
      return made;
    }
    factory->CreateInstance(nullptr, __uuidof(Interface), made.ReceiveAny());
    return made;
  }

 private:
  template <class Function>
  Function* Export(const char* name) const {
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(::GetProcAddress(module_, name)));
  }

  HMODULE module_;
};

/// While this lives, the library's classes are found through its manifest.
class SideBySide {
 public:
  SideBySide();
  ~SideBySide();
  SideBySide(const SideBySide&) = delete;
  SideBySide& operator=(const SideBySide&) = delete;

  bool IsActive() const { return cookie_ != 0; }

 private:
  HANDLE context_;
  ULONG_PTR cookie_ = 0;
};

}  // namespace norvo::clients
